#include "simulator/foundation/device_root.hpp"

#include <array>

namespace simulator {

namespace {

constexpr std::array<std::string_view, 7> phoneFolders{
    "/var", "/private", "/Library", "/System", "/Applications", "/tmp", "/User"};

constexpr std::array<std::string_view, 5> standingFolders{
    "/var/mobile/Library/Preferences", "/var/mobile/Documents", "/Library/Application Support",
    "/System/Library/ControlCenter/Bundles", "/tmp"};

bool lies(std::string_view path, std::string_view folder) {
    return path.starts_with(folder) && (path.size() == folder.size() || path[folder.size()] == '/');
}

}  // namespace

DeviceRoot& DeviceRoot::shared() {
    static auto& root = *new DeviceRoot;
    return root;
}

void DeviceRoot::set(std::filesystem::path root) {
    std::filesystem::create_directories(root);
    root_ = std::filesystem::canonical(root);
    for (std::string_view folder : standingFolders) {
        std::filesystem::create_directories(locate(folder));
    }
}

std::filesystem::path DeviceRoot::locate(std::string_view phonePath) const {
    std::filesystem::path path =
        std::filesystem::path("/" + std::string(phonePath)).lexically_normal();
    std::string text = path.string();
    // The phone's /private/var is its /var.
    if (lies(text, "/private/var")) text = text.substr(std::string_view("/private").size());
    return root_ / std::filesystem::path(text).relative_path();
}

std::string DeviceRoot::map(std::string_view path) const {
    if (root_.empty() || lies(path, root_.native())) return std::string(path);
    for (std::string_view folder : phoneFolders) {
        if (lies(path, folder)) return locate(path).string();
    }
    return std::string(path);
}

}  // namespace simulator
