// The demonstration: pictures and films of the toolbar on the phone, sheets of them, and a page
// (index.html) that tells them in order.
#pragma once

#include <filesystem>
#include <ostream>
#include <string>

namespace simulator::demo {

struct DemoOptions {
    std::filesystem::path pictures;
    std::string system;  // the phone's own default when empty
    bool real = false;   // see PhoneOptions
};

// Writes them to the folder and names each on `output` when it is there. Each scene has a phone of
// its own in a process of its own. 1 when a scene or a picture failed, else 0.
int runDemo(const DemoOptions& options, std::ostream& output, std::ostream& errors);

}  // namespace simulator::demo
