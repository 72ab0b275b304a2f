#include "platform/form.hpp"

#include "platform/log.hpp"

namespace platform {

namespace {

struct NSMutableString : NSString {
    static constexpr FixedString name{"NSMutableString"};
    using NSString::NSString;
    void append(const char* text) const { send<"appendString:">(NSString::from(text)); }
};

void report(FeatureRecord& feature, const char* what, const char* why) {
    if (feature.isReported.exchange(true)) return;
    AutoreleasePool pool;
    auto line = sendClass<NSMutableString, "string", NSMutableString>();
    for (const char* part : {"[Vantori] ", feature.name, what, why}) line.append(part);
    log(line);
}

}  // namespace

void switchOff(FeatureRecord& feature, const char* reason) {
    feature.isOff = true;
    report(feature, " is off: ", reason);
}

void detail::reportFormless(FeatureRecord& feature) {
    report(feature, " is off, this system has none of the forms of ", feature.table);
}

}  // namespace platform
