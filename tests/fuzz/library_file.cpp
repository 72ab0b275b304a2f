#include "tests/fuzz/target.hpp"
#include "tests/loader/image_use.hpp"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    try {
        simulator::loader::tests::use(std::as_bytes(std::span(data, size)));
    } catch (const simulator::loader::BadImage&) {
    }
    return 0;
}
