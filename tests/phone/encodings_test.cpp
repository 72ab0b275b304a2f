// The stand-ins' type encodings beside those that the tables of device/platform have: a message, a hook and a
// comparison of signatures meet here what they meet on a phone only where the two are the same.
#include <gtest/gtest.h>

#include <fstream>
#include <map>
#include <set>
#include <sstream>

#include "platform/ownership.hpp"
#include "simulator/scenario/phone.hpp"

namespace simulator::tests {
namespace {

struct MethodName {
    std::string className;
    char kind;  // - or +
    std::string selector;
    auto operator<=>(const MethodName&) const = default;
    std::string text() const {
        return std::string(1, kind) + "[" + className + " " + selector + "]";
    }
};

// Oneway, const, in and the like change nothing for a caller.
std::string plain(const std::string& encoding) {
    const auto start = encoding.find_first_not_of("rnNoORV");
    return start == std::string::npos ? "" : encoding.substr(start);
}

// With each method the encodings that it has, on one system or another.
std::map<MethodName, std::set<std::string>> tables() {
    std::map<MethodName, std::set<std::string>> all;
    for (const char* name : {"private_methods.tsv", "public_methods.tsv"}) {
        std::ifstream file(std::string(PLATFORM_TABLES "/") + name);
        for (std::string line; std::getline(file, line);) {
            std::istringstream cells(line);
            std::string className, kind, selector, encoding;
            std::getline(cells, className, '\t');
            std::getline(cells, kind, '\t');
            std::getline(cells, selector, '\t');
            std::getline(cells, encoding, '\t');
            if (line.starts_with("#") || (kind != "-" && kind != "+")) continue;
            all[{className, kind[0], selector}].insert(plain(encoding));
        }
    }
    return all;
}

// Nothing when this phone does not have the method.
std::string encodingHere(const MethodName& method) {
    Class cls = objc_getClass(method.className.c_str());
    if (!cls) return "";
    SEL selector = sel_registerName(method.selector.c_str());
    Method found = method.kind == '+' ? class_getClassMethod(cls, selector)
                                      : class_getInstanceMethod(cls, selector);
    return found ? plain(method_getTypeEncoding(found)) : "";
}

// Foundation's methods are GNUstep's, whose encodings have the offsets of this machine.
bool isFoundations(const std::string& encoding) {
    return encoding.find("@0:") != std::string::npos;
}

class Encodings : public testing::TestWithParam<const char*> {};

TEST_P(Encodings, AreThoseOfTheTables) {
    platform::AutoreleasePool pool;
    const auto phone = makePhone({});
    phone->system(GetParam());
    phone->real();
    phone->withoutExtension();
    phone->boot();
    int compared = 0;
    for (const auto& [method, known] : tables()) {
        const std::string here = encodingHere(method);
        if (here.empty() || isFoundations(here)) continue;
        ++compared;
        EXPECT_TRUE(known.contains(here))
            << method.text() << " is " << here << ", and " << *known.begin() << " in the tables";
    }
    EXPECT_GT(compared, 300);
}

INSTANTIATE_TEST_SUITE_P(Systems, Encodings,
                         testing::Values("11.1", "12.4", "13.3", "13.5", "14.2"));

}  // namespace
}  // namespace simulator::tests
