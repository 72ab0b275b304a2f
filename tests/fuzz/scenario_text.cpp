#include "simulator/scenario/errors.hpp"
#include "simulator/scenario/parser.hpp"
#include "tests/fuzz/target.hpp"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    try {
        simulator::scenario::parse(vantori::fuzz::textOf(data, size));
    } catch (const simulator::scenario::SyntaxError&) {
    }
    return 0;
}
