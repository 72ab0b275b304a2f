#include "simulator/serve/requests.hpp"
#include "tests/fuzz/target.hpp"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    simulator::serve::readRequest(vantori::fuzz::textOf(data, size));
    return 0;
}
