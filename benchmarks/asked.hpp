// What the library asks of the system in some work, to be asked again without the library: the floor of
// that work. A message to a stand-in of the phone is taken down with its receiver and arguments, which
// are kept alive; left out are messages that make or tie things, since these would be made and tied anew
// each time, and animations, whose blocks are the library's.
#pragma once

#include <cstddef>
#include <functional>
#include <vector>

namespace benchmarks {

class Asked {
  public:
    // Takes down what the library sends while the work is done. watchLibrary() comes before.
    explicit Asked(const std::function<void()>& work);

    std::size_t count() const { return messages_.size(); }
    // Sends the same messages in the same order.
    void again() const;

  private:
    std::vector<std::function<void()>> messages_;
};

}  // namespace benchmarks
