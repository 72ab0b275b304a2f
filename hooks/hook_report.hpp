// The hook report: a line for each row of the hook table, numbered in its order, and for each other form
// of one: whether its class and method were found, own or inherited, the encoding expected and met, and
// the calls so far. Then a line for each feature that was used, the latest first: the form that it has
// taken, and whether that one failed. The class VNTHookReport gives it as text to whoever asks at run
// time: [VNTHookReport text].
#pragma once

#include "platform/foundation.hpp"

namespace vantori {

using namespace platform;

struct VNTHookReport : Object {
    static constexpr FixedString name{"VNTHookReport"};
    using Object::Object;
};

NSString hookReport();

void registerHookReport();

}  // namespace vantori
