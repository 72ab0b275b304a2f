#include "simulator/serve/page_files.hpp"

#include <array>

namespace simulator::serve {

namespace {

const auto files = std::to_array<PageFile>({
#include <page_files.inc>  // made of the files in page/ when the phone is built
});

}  // namespace

std::span<const PageFile> pageFiles() { return files; }

}  // namespace simulator::serve
