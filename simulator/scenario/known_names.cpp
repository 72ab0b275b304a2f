// How close two names are: by the letters that have to be added, taken away, changed or swapped.
#include "simulator/scenario/known_names.hpp"

#include <algorithm>

namespace simulator {

namespace {

std::size_t distance(std::string_view one, std::string_view other) {
    std::vector<std::size_t> before(other.size() + 1), last, now(other.size() + 1);
    for (std::size_t j = 0; j <= other.size(); ++j) before[j] = j;
    for (std::size_t i = 1; i <= one.size(); ++i) {
        now[0] = i;
        for (std::size_t j = 1; j <= other.size(); ++j) {
            const bool same = one[i - 1] == other[j - 1];
            now[j] = std::min({before[j] + 1, now[j - 1] + 1, before[j - 1] + (same ? 0 : 1)});
            if (i > 1 && j > 1 && one[i - 1] == other[j - 2] && one[i - 2] == other[j - 1])
                now[j] = std::min(now[j], last[j - 2] + 1);
        }
        last = before;
        before = now;
    }
    return before[other.size()];
}

}  // namespace

std::string meant(std::string_view written, const std::vector<std::string>& names) {
    // One letter may be off, of longer names more.
    std::size_t closest = std::clamp<std::size_t>(written.size() / 6, 1, 4) + 1;
    std::string best;
    for (const std::string& name : names) {
        const std::size_t gap = name.size() > written.size() ? name.size() - written.size()
                                                             : written.size() - name.size();
        if (gap >= closest) continue;
        const std::size_t off = distance(written, name);
        if (off >= closest) continue;
        closest = off;
        best = name;
    }
    return best.empty() ? "" : " (is " + best + " meant?)";
}

}  // namespace simulator
