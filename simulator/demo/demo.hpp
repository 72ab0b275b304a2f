// The demonstration: pictures and films of the toolbar on the phone, sheets of them, and a page
// (index.html) that tells them in order.
#pragma once

#include <filesystem>
#include <ostream>

namespace simulator::demo {

// Writes them to the folder and names each on `output` when it is there. Each scene has a phone of
// its own in a process of its own. 1 when a scene or a picture failed, else 0.
int runDemo(const std::filesystem::path& folder, std::ostream& output, std::ostream& errors);

}  // namespace simulator::demo
