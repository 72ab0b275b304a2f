// The phone's own file system: a folder of the host in which absolute phone paths are looked up.
// Paths of the host (the program's own resources) stay as they are.
#pragma once

#include <filesystem>
#include <string>
#include <string_view>

namespace simulator {

class DeviceRoot {
  public:
    static DeviceRoot& shared();

    // Makes the folders that every phone has.
    void set(std::filesystem::path root);
    const std::filesystem::path& path() const { return root_; }

    // Where a phone path lies in the folder, whatever it begins with; it cannot leave the folder.
    std::filesystem::path locate(std::string_view phonePath) const;
    // The same for paths that belong to the phone (/var, /Library, /System, ...); others unchanged.
    std::string map(std::string_view path) const;

  private:
    std::filesystem::path root_;
};

}  // namespace simulator
