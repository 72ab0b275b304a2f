#include "simulator/foundation/conversions.hpp"

#include <algorithm>
#include <limits>
#include <set>
#include <string_view>
#include <vector>

#include "platform/foundation.hpp"
#include "simulator/runtime/replacement.hpp"

namespace simulator {

namespace {

bool isDigit(char c) { return c >= '0' && c <= '9'; }

std::string_view afterBlanks(std::string_view text) {
    std::size_t start = text.find_first_not_of(" \t\n\v\f\r");
    return start == std::string_view::npos ? std::string_view() : text.substr(start);
}

std::string_view textOf(id self) {
    const char* text = platform::NSString(self).utf8();
    return text ? text : "";
}

// Blanks, one sign and zeros are skipped; then Y, y, T, t or a digit from 1 to 9 means YES.
unsigned char boolValue(id self, SEL) {
    std::string_view text = afterBlanks(textOf(self));
    if (!text.empty() && (text[0] == '+' || text[0] == '-')) text.remove_prefix(1);
    text.remove_prefix(std::min(text.find_first_not_of('0'), text.size()));
    return !text.empty() && std::string_view("YyTt123456789").find(text[0]) != text.npos;
}

// Decimal digits after blanks and a sign, held to the range of an int.
int intValue(id self, SEL) {
    std::string_view text = afterBlanks(textOf(self));
    bool negative = !text.empty() && text[0] == '-';
    if (!text.empty() && (text[0] == '+' || negative)) text.remove_prefix(1);
    using Limits = std::numeric_limits<int>;
    long long value = 0;
    for (char c : text) {
        if (!isDigit(c)) break;
        value = std::min(value * 10 + (c - '0'), 1LL + Limits::max());
    }
    return static_cast<int>(
        std::clamp<long long>(negative ? -value : value, Limits::min(), Limits::max()));
}

bool isString(Class cls, Class string) {
    for (; cls; cls = class_getSuperclass(cls)) {
        if (cls == string) return true;
    }
    return false;
}

// GNUstep's concrete string classes have faster versions of their own, so each of them is reached.
template <class Function>
void replaceInStrings(const char* selectorName, Function* function) {
    SEL selector = sel_registerName(selectorName);
    Class string = objc_getClass("NSString");
    std::set<Method> seen;
    int count = objc_getClassList(nullptr, 0);
    std::vector<Class> classes(static_cast<std::size_t>(count));
    objc_getClassList(classes.data(), count);
    for (Class cls : classes) {
        if (!isString(cls, string)) continue;
        Method method = class_getInstanceMethod(cls, selector);
        if (method && seen.insert(method).second) {
            method_setImplementation(method, reinterpret_cast<IMP>(function));
        }
    }
    letSubclassesSee(string);
}

}  // namespace

void installConversions() {
    static bool installed = false;
    if (installed) return;
    installed = true;
    replaceInStrings("boolValue", &boolValue);
    replaceInStrings("intValue", &intValue);
}

}  // namespace simulator
