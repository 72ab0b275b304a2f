// A library without a mistake: it touches each thing in which a phone's code differs from this
// machine's, and tells in the system log what came of it.
#include <sys/utsname.h>

#include "platform/definition.hpp"
#include "platform/log.hpp"
#include "platform/uikit.hpp"

namespace {

using namespace platform;

struct VNTProbe : UIView {
    static constexpr FixedString name{"VNTProbe"};
    using UIView::UIView;
};

// Structures come back in registers up to four numbers, else through memory: here both.
CGRect shifted(VNTProbe, CGRect rect) {
    return {{rect.origin.x + 1, rect.origin.y + 2}, {rect.size.width + 3, rect.size.height + 4}};
}
CGAffineTransform scaled(VNTProbe, double factor) { return {factor, 0, 0, factor, 5, 6}; }

// More arguments than there are registers for numbers.
double sum(VNTProbe, double a, double b, double c, double d, double e, double f, double g, double h,
           double i) {
    return a + b + c + d + e + f + g + h + 10 * i;
}

void setAlpha(VNTProbe self, double alpha) { super<VNTProbe, "setAlpha:">(self, alpha / 2); }

// An exception of the system passes through this on its way to whoever catches it.
long raise(VNTProbe self) { return self.send<"nobodyAnswersThis", long>() + 1; }

void tell() {
    NSLog("probe %@ %ld %.2f %d"_ns.get(), "text"_ns.get(), 7L, 2.5, -3);
    utsname names{};
    uname(&names);
    log(NSString::from(names.machine));
    if (Object().send<"length", double>() == 0) log("nothing answers zero"_ns);
}

[[gnu::constructor]] void load() {
    AutoreleasePool pool;
    define<VNTProbe, UIView>()
        .method<"shifted:", &shifted>()
        .method<"scaled:", &scaled>()
        .method<"sum:and:and:and:and:and:and:and:and:", &sum>()
        .method<"setAlpha:", &setAlpha>()
        .method<"raise", &raise>();
    tell();
}

}  // namespace
