#include "simulator/runtime/associations.hpp"

#include <unordered_map>
#include <vector>

#include "platform/ownership.hpp"
#include "simulator/runtime/exports.hpp"
#include "simulator/runtime/replacement.hpp"

namespace simulator {

namespace {

using platform::Object;

enum Policy : std::size_t {
    assign = 0,
    retainNonatomic = 1,
    copyNonatomic = 3,
    retainAtomic = 0x301,
    copyAtomic = 0x303,
};

struct Association {
    const void* key;
    id value;
    bool owned;
};

std::unordered_map<id, std::vector<Association>>& table() {
    static auto& owners = *new std::unordered_map<id, std::vector<Association>>;
    return owners;
}

id acquire(id value, std::size_t policy) {
    if (policy == copyNonatomic || policy == copyAtomic) {
        return Object(value).send<"copy", Object>().get();
    }
    if (policy == retainNonatomic || policy == retainAtomic) {
        return Object(value).send<"retain", Object>().get();
    }
    return value;
}

void letGo(const Association& association) {
    if (association.owned) Object(association.value).send<"release">();
}

void (*systemDealloc)(id, SEL) = nullptr;

void deallocWithAssociations(id self, SEL command) {
    if (!table().empty()) {
        if (auto found = table().find(self); found != table().end()) {
            std::vector<Association> tied = std::move(found->second);
            table().erase(found);
            for (const Association& association : tied) letGo(association);
        }
    }
    systemDealloc(self, command);
}

}  // namespace

void installAssociations() {
    if (systemDealloc) return;
    systemDealloc = reinterpret_cast<void (*)(id, SEL)>(
        replaceMethod("NSObject", MethodKind::instance, "dealloc",
                      reinterpret_cast<IMP>(&deallocWithAssociations)));
}

std::size_t associatedOwners() { return table().size(); }

}  // namespace simulator

VANTORI_EXPORT id objc_getAssociatedObject(id object, const void* key) {
    auto found = simulator::table().find(object);
    if (!object || found == simulator::table().end()) return nullptr;
    for (const auto& association : found->second) {
        if (association.key == key) return association.value;
    }
    return nullptr;
}

VANTORI_EXPORT void objc_setAssociatedObject(id object, const void* key, id value,
                                             std::size_t policy) {
    using namespace simulator;
    if (!object) return;
    installAssociations();
    id fresh = acquire(value, policy);
    auto& tied = table()[object];
    Association old{key, nullptr, false};
    std::erase_if(tied, [&](const Association& association) {
        if (association.key != key) return false;
        old = association;
        return true;
    });
    if (fresh) tied.push_back({key, fresh, policy != assign});
    if (tied.empty()) table().erase(object);
    letGo(old);
}
