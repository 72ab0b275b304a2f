// The mistake: a message with variable arguments, sent as if they were named ones.
#include "platform/log.hpp"

namespace {

using namespace platform;

[[gnu::constructor]] void load() {
    log(sendClass<NSString, "stringWithFormat:", NSString>("%ld things"_ns, 7L));
}

}  // namespace
