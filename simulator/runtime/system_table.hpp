// What is known of real systems: whether a class, a method or a variable was found on one, and where
// nobody looked, which system that was looked at is taken instead. Made from device/platform when
// the phone is built. A release is a system's major version times 100 plus its minor one.
#pragma once

#include <functional>
#include <optional>
#include <string>
#include <string_view>

namespace simulator {

enum class Kind : char {
    method = '-',
    classMethod = '+',
    variable = 'i',
    type = 'c',  // the class itself; its name is empty
};

enum class Found { own, inherited, absent };

// Calls visit(release) for every release, from the oldest.
void eachRelease(const std::function<void(int)>& visit);

struct Finding {
    Found found;
    int followed;   // the release that says so
    bool lookedAt;  // that release, or one of its generation, see below
};

// 13.4.1 is 1304. Nothing when there is no such system among those that the tables are about.
std::optional<int> releaseOf(const std::string& version);
std::string versionOf(int release);

// Nothing when the tables do not know the name. A release that nobody looked at follows one of its
// generation (11, 12, 13.0 to 13.3, 13.4 to 13.7, 14), else one of its major version, else any; of those the
// one that the fewest releases part from it, and of two the earlier.
std::optional<Finding> finding(std::string_view className, Kind kind, std::string_view name,
                               int release);

// Whether any system was found to have it, or is said to have brought it.
bool someSystemHas(std::string_view className, Kind kind, std::string_view name);

// Calls visit(className, kind, name) for every name of the tables.
template <class Visitor>
void eachSystemName(Visitor visit);

struct SystemName {
    std::string_view className;
    Kind kind;
    std::string_view name;
};
std::size_t systemNameCount();
SystemName systemName(std::size_t index);

template <class Visitor>
void eachSystemName(Visitor visit) {
    for (std::size_t i = 0; i < systemNameCount(); ++i) {
        const SystemName row = systemName(i);
        visit(row.className, row.kind, row.name);
    }
}

}  // namespace simulator
