// The phone's system log: what NSLog and the injection framework write, line by line.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace simulator {

class SystemLog {
  public:
    static SystemLog& shared();

    // Leads NSLog here; once, at set-up.
    void install();
    void write(std::string line);
    const std::vector<std::string>& lines() const { return lines_; }
    // How many lines contain the text.
    long count(std::string_view text) const;
    void clear() { lines_.clear(); }

  private:
    std::vector<std::string> lines_;
};

}  // namespace simulator
