#include "simulator/foundation/language.hpp"

#include <algorithm>
#include <array>
#include <nlohmann/json.hpp>
#include <string_view>
#include <utility>

#include "platform/foundation.hpp"
#include "simulator/foundation/preferences.hpp"
#include "simulator/runtime/replacement.hpp"

namespace simulator {

namespace {

using platform::NSString;
using platform::Object;
using platform::Strong;

constexpr std::string_view unspoken = "en";  // a new phone's, which nobody wrote down

// Where most people who speak it live, for languages that name no region.
constexpr std::array<std::pair<std::string_view, std::string_view>, 16> regions{{
    {"en", "US"},
    {"de", "DE"},
    {"fr", "FR"},
    {"es", "ES"},
    {"it", "IT"},
    {"nl", "NL"},
    {"pt", "PT"},
    {"sv", "SE"},
    {"pl", "PL"},
    {"ru", "RU"},
    {"tr", "TR"},
    {"ja", "JP"},
    {"ko", "KR"},
    {"zh-Hans", "CN"},
    {"zh-Hant", "TW"},
    {"ar", "SA"},
}};

struct Spoken {
    Strong<Object> languages;  // an array of one
    Strong<Object> locale;
};

Spoken& spoken() {
    static auto& kept = *new Spoken;
    return kept;
}

bool allLetters(std::string_view text) {
    return std::ranges::all_of(
        text, [](char c) { return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z'); });
}

// de becomes de_DE, pt-BR pt_BR, zh-Hans zh-Hans_CN.
std::string localeOf(const std::string& code) {
    const auto* row = std::ranges::find(regions, code, [](const auto& each) { return each.first; });
    if (row != regions.end()) return code + "_" + std::string(row->second);
    std::string locale = code;
    if (const std::size_t part = locale.rfind('-'); part != std::string::npos) locale[part] = '_';
    return locale;
}

id preferredLanguages(id, SEL) { return spoken().languages.get(); }
id currentLocale(id, SEL) { return spoken().locale.get(); }

void replaceOnClass(const char* className, const char* selector, id (*function)(id, SEL)) {
    replaceMethod(className, MethodKind::onClass, selector, reinterpret_cast<IMP>(function));
}

}  // namespace

bool isLanguage(const std::string& code) {
    const std::size_t end = std::min(code.find('-'), code.size());
    const std::string_view language = std::string_view(code).substr(0, end);
    if (language.size() < 2 || language.size() > 3 || !allLetters(language)) return false;
    if (end == code.size()) return true;
    const std::string_view part = std::string_view(code).substr(end + 1);
    return (part.size() == 2 || part.size() == 4) && allLetters(part);
}

void speak(const std::string& code) {
    const std::string locale = localeOf(code);
    if (code != unspoken) {
        writePreference(".GlobalPreferences", "AppleLanguages", nlohmann::json::array({code}));
        writePreference(".GlobalPreferences", "AppleLocale", locale);
    }
    const Object array(platform::classObject(objc_getClass("NSArray")));
    spoken().languages =
        platform::retained(array.send<"arrayWithObject:", Object>(NSString::from(code.c_str())));
    const Object locales(platform::classObject(objc_getClass("NSLocale")));
    spoken().locale =
        platform::adopted(locales.send<"alloc", Object>().send<"initWithLocaleIdentifier:", Object>(
            NSString::from(locale.c_str())));
    replaceOnClass("NSLocale", "preferredLanguages", &preferredLanguages);
    replaceOnClass("NSLocale", "currentLocale", &currentLocale);
    replaceOnClass("NSLocale", "autoupdatingCurrentLocale", &currentLocale);
    replaceOnClass("NSUserDefaults", "userLanguages", &preferredLanguages);
}

}  // namespace simulator
