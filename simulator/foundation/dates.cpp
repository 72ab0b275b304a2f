#include "simulator/foundation/dates.hpp"

#include "platform/foundation.hpp"
#include "simulator/runtime/clock.hpp"
#include "simulator/runtime/replacement.hpp"

namespace simulator {

namespace {

using platform::classObject;
using platform::Object;

constexpr double referenceDate = 978307200;  // the first of January 2001

double now() { return Clock::shared().date() - referenceDate; }

Object dateAt(Object cls, double time) {
    return cls.send<"dateWithTimeIntervalSinceReferenceDate:", Object>(time);
}

double classNow(id, SEL) { return now(); }
id date(id self, SEL) { return dateAt(Object(self), now()).get(); }
id dateFromNow(id self, SEL, double seconds) { return dateAt(Object(self), now() + seconds).get(); }
id init(id self, SEL) {
    return Object(self).send<"initWithTimeIntervalSinceReferenceDate:", Object>(now()).get();
}
id initFromNow(id self, SEL, double seconds) {
    return Object(self)
        .send<"initWithTimeIntervalSinceReferenceDate:", Object>(now() + seconds)
        .get();
}
double sinceNow(id self, SEL) {
    return Object(self).send<"timeIntervalSinceReferenceDate", double>() - now();
}

id systemTimeZone(id self, SEL) {
    return Object(self).send<"timeZoneForSecondsFromGMT:", Object>(0L).get();
}

template <class Function>
void put(const char* className, MethodKind kind, const char* selector, Function* function) {
    replaceMethod(className, kind, selector, reinterpret_cast<IMP>(function));
}

}  // namespace

void installDates() {
    put("NSDate", MethodKind::onClass, "timeIntervalSinceReferenceDate", &classNow);
    put("NSDate", MethodKind::onClass, "date", &date);
    put("NSDate", MethodKind::onClass, "dateWithTimeIntervalSinceNow:", &dateFromNow);
    put("NSDate", MethodKind::instance, "init", &init);
    put("NSDate", MethodKind::instance, "initWithTimeIntervalSinceNow:", &initFromNow);
    put("NSDate", MethodKind::instance, "timeIntervalSinceNow", &sinceNow);
    // The class that dates are of in the end answers for itself.
    put("NSGDate", MethodKind::instance, "timeIntervalSinceNow", &sinceNow);
    put("NSTimeZone", MethodKind::onClass, "systemTimeZone", &systemTimeZone);
}

}  // namespace simulator
