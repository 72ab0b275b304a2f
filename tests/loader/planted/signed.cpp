// What a library of arm64e hands over and gets back, each several times, since a wrong signature passes
// a check of seven bits (which is what an emulated processor has) once in 128 times by chance. As it
// stands it is sound; CLASS_SIGNING, FUNCTION_SIGNING and PLAIN_SAVED plant mistakes of the compiler's
// side, tests/device/damage.py those of the file's.
#include "platform/block_function.hpp"
#include "platform/definition.hpp"
#include "platform/uikit.hpp"

#ifndef CLASS_SIGNING
#define CLASS_SIGNING VANTORI_SIGNED_CLASS
#endif
#ifndef FUNCTION_SIGNING
#define FUNCTION_SIGNING VANTORI_SIGNED_FUNCTION
#endif

namespace {

using namespace platform;

struct VNTProbe : UIView {
    static constexpr FixedString name{"VNTProbe"};
    using UIView::UIView;
};

// Functions in a table: the file says how their pointers are signed.
long one(long to) { return to + 1; }
long two(long to) { return to + 2; }
long three(long to) { return to + 3; }
long four(long to) { return to + 4; }
using Step = long (*)(long);
volatile long steps = 4;  // unknown to the compiler, which would call the functions directly
const Step table[] = {&one, &two, &three, &four};

long tableSum(VNTProbe) {
    long sum = 0;
    for (long index = 0; index < steps; ++index) sum = table[index](sum);
    return sum;
}

// Blocks whose captures are copied and disposed of by functions that their descriptors name.
long blockSum = 0;
template <int Number>
void addFromBlock(VNTProbe probe) {
    UIView::animate(0, block([kept = retained(probe)] {
                        if (kept.alpha() == 1) blockSum += Number;
                    }));
}
long runBlocks(VNTProbe probe) {
    addFromBlock<1>(probe);
    addFromBlock<2>(probe);
    addFromBlock<3>(probe);
    addFromBlock<4>(probe);
    return blockSum;
}

// Blocks made by hand, whose class and function are signed as the macros say.
struct Literal {
    void* CLASS_SIGNING isa;
    int flags;
    int reserved;
    void (*FUNCTION_SIGNING invoke)(Literal*);
    const unsigned long* descriptor;
};
const unsigned long literalDescriptor[] = {0, sizeof(Literal)};
long literalRuns = 0;
void runOnce(Literal*) { ++literalRuns; }

long runLiterals(VNTProbe) {
    for (int round = 0; round < 2; ++round) {
        Literal first{_NSConcreteStackBlock, 0, 0, &runOnce, literalDescriptor};
        Literal second{_NSConcreteStackBlock, 0, 0, &runOnce, literalDescriptor};
        UIView::animate(0, BlockRef<void()>(&first));
        UIView::animate(0, BlockRef<void()>(&second));
    }
    return literalRuns;
}

// What the injector hands back is called as any function.
using Getter = long (*)(id, SEL);
IMP saved[4];
long first(VNTProbe) { return 1; }
long second(VNTProbe) { return 2; }
long third(VNTProbe) { return 3; }
long fourth(VNTProbe) { return 4; }
long replacement(id, SEL) { return 1000; }

long callSaved(VNTProbe probe) {
    constexpr const char* names[] = {"first", "second", "third", "fourth"};
    long sum = 0;
    for (int index = 0; index < 4; ++index) {
        SEL selector = sel_registerName(names[index]);
        MSHookMessageEx(object_getClass(probe.get()), selector, reinterpret_cast<IMP>(&replacement),
                        &saved[index]);
#ifdef PLAIN_SAVED
        asm volatile("xpaci %0" : "+r"(saved[index]));
#endif
        sum += reinterpret_cast<Getter>(saved[index])(probe.get(), selector);
    }
    return sum;
}

[[gnu::constructor]] void load() {
    AutoreleasePool pool;
    define<VNTProbe, UIView>()
        .method<"tableSum", &tableSum>()
        .method<"runBlocks", &runBlocks>()
        .method<"runLiterals", &runLiterals>()
        .method<"first", &first>()
        .method<"second", &second>()
        .method<"third", &third>()
        .method<"fourth", &fourth>()
        .method<"callSaved", &callSaved>();
}

}  // namespace
