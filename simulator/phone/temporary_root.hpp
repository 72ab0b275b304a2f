// Where a phone's file system is kept: in the folder that was asked for, or in a temporary one that
// goes with it.
#pragma once

#include <filesystem>

namespace simulator {

class TemporaryRoot {
  public:
    // Throws PhoneError when the folder cannot be made.
    explicit TemporaryRoot(std::filesystem::path asked);
    ~TemporaryRoot();
    TemporaryRoot(const TemporaryRoot&) = delete;
    TemporaryRoot& operator=(const TemporaryRoot&) = delete;
    const std::filesystem::path& path() const { return path_; }

  private:
    std::filesystem::path path_;
    bool temporary_;
};

}  // namespace simulator
