// The files of the page, which the build puts into the program.
#pragma once

#include <span>

#include "simulator/serve/server.hpp"

namespace simulator::serve {

std::span<const PageFile> pageFiles();

}  // namespace simulator::serve
