// Each method is a plain function; its encoding stands beside it in the table at the end.
#include "tests/scenario/specimen.hpp"

#include <string>
#include <vector>

#include "simulator/scenario/objective_c.hpp"

namespace simulator::scenario {
namespace {

struct Point {
    double x, y;
};
struct Rect {
    Point origin, size;
};
struct Transform {
    double a, b, c, d, tx, ty;
};
struct Variables {
    int hidden;
    double plain;
    Rect frame;
};

int living = 0;
id sharedSpecimen = nullptr;

template <typename T>
T& variable(id object, const char* name) {
    const Ivar ivar = class_getInstanceVariable(object_getClass(object), name);
    return *reinterpret_cast<T*>(reinterpret_cast<char*>(object) + ivar_getOffset(ivar));
}

id specimenClass() { return classNamed("ScenarioSpecimen"); }

id fresh() {
    ++living;
    const id object = send<id>(specimenClass(), "new");
    variable<int>(object, "_hidden") = 7;
    variable<double>(object, "plain") = 2.5;
    return object;
}

id shared(id, SEL) {
    if (sharedSpecimen == nullptr) {
        sharedSpecimen = fresh();
        --living;
    }
    return sharedSpecimen;
}

id make(id, SEL) { return send<id>(fresh(), "autorelease"); }

void dealloc(id self, SEL) {
    --living;
    // As a call of super: NSObject's own implementation.
    const auto base = reinterpret_cast<Class>(classNamed("NSObject"));
    const Method method = class_getInstanceMethod(base, sel_registerName("dealloc"));
    reinterpret_cast<void (*)(id, SEL)>(reinterpret_cast<void (*)()>(
        method_getImplementation(method)))(self, sel_registerName("dealloc"));
}

template <typename T>
T give(id, SEL, T value) {
    return value;
}

Rect frame(id self, SEL) { return variable<Rect>(self, "frame"); }
void setFrame(id self, SEL, Rect rect) { variable<Rect>(self, "frame") = rect; }

double sum(id, SEL, int first, double second, Point third, float fourth, Rect fifth,
           unsigned char sixth) {
    return first + second + third.x + third.y + fourth + fifth.origin.x + fifth.size.y + sixth;
}

id nothing(id, SEL) { return nullptr; }
void doNothing(id, SEL) {}
unsigned char enabled(id, SEL) { return 1; }
id title(id, SEL) { return makeString("A title"); }
id number(id, SEL) { return send<id>(classNamed("NSNumber"), "numberWithInt:", 42); }
id list(id, SEL) { return send<id>(classNamed("NSArray"), "arrayWithObject:", makeString("only")); }
id same(id self, SEL) { return self; }
void raise(id, SEL) {
    const id exception =
        send<id>(classNamed("NSException"),
                 "exceptionWithName:reason:userInfo:", makeString("SpecimenException"),
                 makeString("it was asked to"), static_cast<id>(nullptr));
    send<void>(exception, "raise");
}

struct Row {
    const char* selector;
    void (*function)();
    const char* encoding;
};

template <typename Function>
Row row(const char* selector, Function* function, const char* encoding) {
    return {selector, reinterpret_cast<void (*)()>(function), encoding};
}

void addMethods(Class cls, const std::vector<Row>& rows) {
    for (const Row& each : rows)
        class_addMethod(cls, sel_registerName(each.selector), reinterpret_cast<IMP>(each.function),
                        each.encoding);
}

const char* const rectEncoding = "{CGRect={CGPoint=dd}{CGSize=dd}}16@0:8";

}  // namespace

void registerSpecimen() {
    if (specimenClass() != nullptr) return;
    const auto base = reinterpret_cast<Class>(classNamed("NSObject"));
    const Class cls = objc_allocateClassPair(base, "ScenarioSpecimen", 0);
    class_addIvar(cls, "_hidden", sizeof(int), 2, "i");
    class_addIvar(cls, "plain", sizeof(double), 3, "d");
    class_addIvar(cls, "frame", sizeof(Rect), 3, "{CGRect={CGPoint=dd}{CGSize=dd}}");
    addMethods(cls,
               {
                   row("dealloc", dealloc, "v@:"),
                   row("takeB:", give<bool>, "B@:B"),
                   row("takec:", give<signed char>, "c@:c"),
                   row("takeC:", give<unsigned char>, "C20@0:8C16"),
                   row("takes:", give<short>, "s@:s"),
                   row("takeS:", give<unsigned short>, "S@:S"),
                   row("takei:", give<int>, "i@:i"),
                   row("takeI:", give<unsigned>, "I@:I"),
                   row("takel:", give<long>, "l@:l"),
                   row("takeL:", give<unsigned long>, "L@:L"),
                   row("takeq:", give<long long>, "q@:q"),
                   row("takeQ:", give<unsigned long long>, "Q@:Q"),
                   row("takef:", give<float>, "f@:f"),
                   row("taked:", give<double>, "d@:d"),
                   row("takeObject:", give<id>, "@@:@\"NSString\""),
                   row("takeClass:", give<id>, "#@:#"),
                   row("takeSelector:", give<SEL>, "::::"),
                   row("takeText:", give<const char*>, "r*@:r*"),
                   row("takePointer:", give<void*>, "^v@:^{__CFString=}"),
                   row("takeBlock:", give<void*>, "@?@:@?"),
                   row("takePoint:", give<Point>, "{CGPoint=dd}@:{CGPoint=dd}"),
                   row("takeRect:", give<Rect>,
                       "{_NSRect={_NSPoint=dd}{_NSSize=dd}}@:{_NSRect={_NSPoint=dd}{_NSSize=dd}}"),
                   row("takeTransform:", give<Transform>,
                       "{CGAffineTransform=dddddd}@:{CGAffineTransform=dddddd}"),
                   row("sum:and:point:float:rect:flag:", sum,
                       "d@:id{CGPoint=dd}f{CGRect={CGPoint=dd}{CGSize=dd}}C"),
                   row("frame", frame, rectEncoding),
                   row("setFrame:", setFrame, "v48@0:8{CGRect={CGPoint=dd}{CGSize=dd}}16"),
                   row("nothing", nothing, "@@:"),
                   row("doNothing", doNothing, "v@:"),
                   row("isEnabled", enabled, "C16@0:8"),
                   row("title", title, "@16@0:8"),
                   row("number", number, "@@:"),
                   row("list", list, "@@:"),
                   row("same", same, "@@:"),
                   row("raise", raise, "v@:"),
                   row("union", doNothing, "(u=id)@:"),
               });
    objc_registerClassPair(cls);
    addMethods(object_getClass(reinterpret_cast<id>(cls)),
               {row("shared", shared, "@@:"), row("make", make, "@@:")});
}

int livingSpecimens() { return living; }

}  // namespace simulator::scenario
