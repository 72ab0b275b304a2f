#include "pages/module_expansion.hpp"

#include "platform/block.hpp"
#include "platform/control_center.hpp"
#include "platform/dispatch.hpp"
#include "platform/form.hpp"
#include "platform/ownership.hpp"

namespace vantori {

namespace {

using SharedCollection =
    ClassMethod<"CCUIModuleCollectionViewController", "sharedInstance", Object()>;
using Prepare = InstanceMethod<"SBControlCenterController", "preparedForExpanding", void()>;
using Show = InstanceMethod<"SBControlCenterController", "showExpandedViewAnimated", void()>;

using ModularCollection = ClassMethod<"CCUIModularControlCenterViewController",
                                      "_sharedCollectionViewController", Object()>;
using Present = InstanceMethod<"SBControlCenterController",
                               "presentAnimated:completion:", void(bool, BlockRef<void(bool)>)>;

Object sharedCollection() {
    Object cls(classObject(classOf<CCUIModuleCollectionViewController>()));
    return cls.sendIfAnswered<"sharedInstance", Object>();
}

void prepareModule(NSString module) {
    SBControlCenterController::shared().sendIfAnswered<"preparedForExpanding">();
    sharedCollection().sendIfAnswered<"vntExpandModuleWithIdentifier:">(module);
}

void showPreparedModule(NSString) {
    SBControlCenterController::shared().sendIfAnswered<"showExpandedViewAnimated">();
}

// Which request waits for Control Center to be there; 0 when none does. Control Center says so once, more
// often or never, and on any thread.
unsigned long waiting = 0;
unsigned long latest = 0;

void expandPresented(unsigned long request, NSString module) {
    if (waiting != request) return;
    waiting = 0;
    ModularCollection::send().sendIfAnswered<"vntExpandModuleWithIdentifier:">(module);
}

void presentModule(NSString module) {
    const unsigned long request = waiting = ++latest;
    auto presented = block<void(bool)>([request, module = retained(module)](bool) {
        onMainQueue([request, module] { expandPresented(request, module); });
    });
    Present::send(SBControlCenterController::shared(), false, presented);
}

constexpr ModuleExpansion inSteps{&prepareModule, &showPreparedModule};
constexpr ModuleExpansion oncePresented{[](NSString) {}, &presentModule};

using Expanding =
    Feature<"expanding a module",  //
            Form<"prepared, then shown", inSteps, SharedCollection, Prepare, Show>,
            Form<"once Control Center is presented", oncePresented, ModularCollection, Present>>;

}  // namespace

const ModuleExpansion& moduleExpansion() {
    const ModuleExpansion* taken = Expanding::taken();
    return taken ? *taken : inSteps;
}

}  // namespace vantori
