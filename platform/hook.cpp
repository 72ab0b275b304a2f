#include "platform/hook.hpp"

namespace platform {

namespace {

bool declaresItself(Class cls, Method method) {
    Class parent = class_getSuperclass(cls);
    return !parent || class_getInstanceMethod(parent, method_getName(method)) != method;
}

void inspect(const HookRow& row, Class cls, HookRecord& record) {
    record.classFound = cls != nullptr;
    Method method = cls ? class_getInstanceMethod(cls, row.selector()) : nullptr;
    record.methodFound = method != nullptr;
    record.inherited = method && !declaresItself(cls, method);
    record.encodingMet = method ? method_getTypeEncoding(method) : nullptr;
}

}  // namespace

void install(const HookRow& row) {
    Class cls = objc_getClass(row.className);
    HookRecord& record = *row.record;
    inspect(row, cls, record);
    record.installed = true;
    MSHookMessageEx(cls, row.selector(), row.replacement, &record.saved);
}

}  // namespace platform
