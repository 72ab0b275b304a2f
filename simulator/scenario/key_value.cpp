// Key-value coding that never raises, by the encodings of getters and instance variables.
#include "simulator/scenario/key_value.hpp"

#include "simulator/scenario/encoding.hpp"
#include "simulator/scenario/errors.hpp"
#include "simulator/scenario/messages.hpp"
#include "simulator/scenario/objective_c.hpp"

namespace simulator::scenario {
namespace {

std::string booleanGetter(std::string key) {
    if (!key.empty() && key[0] >= 'a' && key[0] <= 'z')
        key[0] = static_cast<char>(key[0] - 'a' + 'A');
    return "is" + key;
}

Value readVariable(id owner, Ivar variable) {
    const char* encoding = ivar_getTypeEncoding(variable);
    return Type::read(encoding).load(reinterpret_cast<const char*>(owner) +
                                     ivar_getOffset(variable));
}

}  // namespace

Value valueForKey(const Value& owner, const std::string& key) {
    const auto object = asObject(owner);
    if (!object) throw EvaluationError(printed(owner) + " has no keys");
    if (*object == nullptr) return Nothing{};
    if (isKindOf(*object, "NSDictionary"))
        return objectValue(send<id>(*object, "objectForKey:", makeString(key)));
    for (const std::string& getter : {key, booleanGetter(key)})
        if (understands(*object, getter)) return sendMessage(owner, getter, {});
    if (!isClass(*object)) {
        for (const std::string& name : {key, "_" + key}) {
            const Ivar variable = class_getInstanceVariable(object_getClass(*object), name.c_str());
            if (variable != nullptr) return readVariable(*object, variable);
        }
    }
    throw EvaluationError(printed(owner) + " has nothing for the key \"" + key + "\"");
}

}  // namespace simulator::scenario
