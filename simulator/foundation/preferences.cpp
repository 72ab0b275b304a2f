#include "simulator/foundation/preferences.hpp"

#include <map>
#include <nlohmann/json.hpp>

#include "platform/core_foundation.hpp"
#include "simulator/foundation/device_root.hpp"
#include "simulator/foundation/property_list.hpp"
#include "simulator/runtime/exports.hpp"

namespace simulator {

namespace {

using platform::NSDictionary;
using platform::NSString;
using platform::Object;
using platform::Strong;

std::map<std::string, Strong<NSDictionary>>& cache() {
    static auto& domains = *new std::map<std::string, Strong<NSDictionary>>;
    return domains;
}

NSDictionary fileOf(const std::string& domain) {
    return NSDictionary::withContentsOfFile(NSString::from(preferencesPath(domain).c_str()));
}

std::string textOf(CFStringRef string) {
    return string ? NSString(static_cast<id>(const_cast<void*>(string))).utf8() : "";
}

NSDictionary cached(const std::string& domain) {
    auto found = cache().find(domain);
    if (found == cache().end()) {
        found = cache().emplace(domain, platform::retained(fileOf(domain))).first;
    }
    return found->second;
}

}  // namespace

std::string preferencesPath(const std::string& domain) {
    return "/var/mobile/Library/Preferences/" + domain + ".plist";
}

void writePreference(const std::string& domain, const std::string& key,
                     const std::optional<nlohmann::json>& value) {
    Object fresh = value ? propertyListObject(*value) : Object();
    NSDictionary old = fileOf(domain);
    auto contents =
        old ? platform::adopted(old.send<"mutableCopy", Object>())
            : platform::adopted(Object(platform::classObject(objc_getClass("NSMutableDictionary")))
                                    .send<"new", Object>());
    NSString name = NSString::from(key.c_str());
    if (fresh) {
        contents.send<"setObject:forKey:">(fresh, name);
    } else {
        contents.send<"removeObjectForKey:">(name);
    }
    writeFile(DeviceRoot::shared().locate(preferencesPath(domain)),
              encodePropertyList(contents, PropertyListFormat::binary));
}

nlohmann::json readPreferences(const std::string& domain) {
    const NSDictionary contents = fileOf(domain);
    return contents ? propertyListJson(contents) : nlohmann::json::object();
}

}  // namespace simulator

VANTORI_EXPORT unsigned char CFPreferencesAppSynchronize(CFStringRef applicationId) {
    std::string domain = simulator::textOf(applicationId);
    simulator::cache()[domain] = platform::retained(simulator::fileOf(domain));
    return true;
}

VANTORI_EXPORT CFPropertyListRef CFPreferencesCopyAppValue(CFStringRef key,
                                                           CFStringRef applicationId) {
    using namespace platform;
    if (!key) return nullptr;
    NSString name(static_cast<id>(const_cast<void*>(key)));
    return retained(simulator::cached(simulator::textOf(applicationId)).at(name)).leak();
}
