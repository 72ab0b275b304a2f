#include "platform/form.hpp"

#include "platform/log.hpp"

namespace platform {

namespace {

struct NSMutableString : NSString {
    static constexpr FixedString name{"NSMutableString"};
    using NSString::NSString;
    void append(const char* text) const { send<"appendString:">(NSString::from(text)); }
};

void report(const FeatureRecord& feature, const char* reason, Object error) {
    AutoreleasePool pool;
    auto line = sendClass<NSMutableString, "string", NSMutableString>();
    for (const char* part : {"[Vantori] ", feature.name, " is off: ", reason}) line.append(part);
    if (error) {
        line.append(": ");
        line.append(error.send<"description", NSString>().utf8());
    }
    log(line);
}

std::atomic<const FeatureRecord*> latest{nullptr};

}  // namespace

const FeatureRecord* usedFeatures() { return latest; }

VANTORI_WHOLE void detail::list(FeatureRecord& feature) {
    if (feature.isListed.exchange(true)) return;
    feature.next = latest;
    while (!latest.compare_exchange_weak(feature.next, &feature)) {
    }
}

VANTORI_WHOLE void switchOff(FeatureRecord& feature, const char* reason, Object error) {
    if (!feature.isOff.exchange(true)) report(feature, reason, error);
}

}  // namespace platform
