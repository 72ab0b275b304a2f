#include "simulator/runtime/system_table.hpp"

#include <algorithm>
#include <array>
#include <cstdio>
#include <cstdlib>
#include <iterator>
#include <span>
#include <tuple>

namespace simulator {

namespace {

struct Sighting {
    int release;
    Found found;
};
struct SystemRow {
    std::string_view className;
    char kind;
    std::string_view name;
    int since;  // the release that brought it, 0 for the oldest
    std::size_t first;
    std::size_t count;
};

#include <system_rows.inc>  // made of the tables when the phone is built

// The latest minor version of each major one from 11 on.
constexpr int oldestMajor = 11;
constexpr std::array latestMinor{4, 5, 7, 8};

// Where a release stands in the order in which they came.
int ordinal(int release) {
    int place = 0;
    for (int major = oldestMajor; major < release / 100; ++major) {
        const auto index = static_cast<std::size_t>(major - oldestMajor);
        place += index < latestMinor.size() ? latestMinor[index] + 1 : 1;
    }
    return place + release % 100;
}

constexpr int generation(int release) {
    constexpr int second = 1304;  // of major version 13
    return release / 100 * 2 + (release / 100 == second / 100 && release >= second ? 1 : 0);
}

auto distance(const Sighting& seen, int release) {
    return std::tuple(generation(seen.release) != generation(release),
                      seen.release / 100 != release / 100,
                      std::abs(ordinal(seen.release) - ordinal(release)), seen.release);
}

const SystemRow* find(std::string_view className, Kind kind, std::string_view name) {
    auto key = [](const SystemRow& row) { return std::tuple(row.className, row.kind, row.name); };
    const std::tuple wanted(className, static_cast<char>(kind), name);
    const auto* found = std::ranges::lower_bound(systemRows, wanted, {}, key);
    return found != std::end(systemRows) && key(*found) == wanted ? found : nullptr;
}

}  // namespace

std::optional<int> releaseOf(const std::string& version) {
    int major = 0, minor = 0;
    if (std::sscanf(version.c_str(), "%d.%d", &major, &minor) != 2) return std::nullopt;
    const int index = major - oldestMajor;
    if (index < 0 || index >= static_cast<int>(latestMinor.size())) return std::nullopt;
    if (minor < 0 || minor > latestMinor.at(static_cast<std::size_t>(index))) return std::nullopt;
    return major * 100 + minor;
}

std::string versionOf(int release) {
    return std::to_string(release / 100) + "." + std::to_string(release % 100);
}

void eachRelease(const std::function<void(int)>& visit) {
    for (std::size_t index = 0; index < latestMinor.size(); ++index) {
        const int major = oldestMajor + static_cast<int>(index);
        for (int minor = 0; minor <= latestMinor[index]; ++minor) visit(major * 100 + minor);
    }
}

std::optional<Finding> finding(std::string_view className, Kind kind, std::string_view name,
                               int release) {
    const SystemRow* row = find(className, kind, name);
    if (!row) return std::nullopt;
    if (row->count == 0)
        return Finding{release < row->since ? Found::absent : Found::own, release, true};
    const auto nearest =
        *std::ranges::min_element(std::span(sightings).subspan(row->first, row->count), {},
                                  [&](const Sighting& seen) { return distance(seen, release); });
    return Finding{nearest.found, nearest.release,
                   generation(nearest.release) == generation(release)};
}

bool someSystemHas(std::string_view className, Kind kind, std::string_view name) {
    const SystemRow* row = find(className, kind, name);
    if (!row) return false;
    const auto seen = std::span(sightings).subspan(row->first, row->count);
    return seen.empty() || std::ranges::any_of(seen, [](const Sighting& each) {
               return each.found != Found::absent;
           });
}

std::size_t systemNameCount() { return std::size(systemRows); }

SystemName systemName(std::size_t index) {
    const SystemRow& row = systemRows[index];
    return {row.className, static_cast<Kind>(row.kind), row.name};
}

}  // namespace simulator
