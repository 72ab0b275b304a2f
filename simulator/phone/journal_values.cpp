#include "simulator/phone/journal_values.hpp"

namespace simulator {

namespace {

using scenario::Value;

struct Converter {
    Value operator()(bool value) const { return scenario::booleanValue(value); }
    Value operator()(long value) const { return scenario::integerValue(value); }
    Value operator()(double value) const { return scenario::realValue(value); }
    Value operator()(CGPoint p) const { return scenario::Structure{{p.x, p.y}}; }
    Value operator()(CGSize s) const { return scenario::Structure{{s.width, s.height}}; }
    Value operator()(const CGRect& r) const {
        return scenario::Structure{{r.origin.x, r.origin.y, r.size.width, r.size.height}};
    }
    Value operator()(const CGAffineTransform& t) const {
        return scenario::Structure{{t.a, t.b, t.c, t.d, t.tx, t.ty}};
    }
    Value operator()(const platform::Strong<platform::Object>& object) const {
        return scenario::objectValue(object.get());
    }
    Value operator()(Class cls) const { return scenario::objectValue(platform::classObject(cls)); }
    Value operator()(SEL selector) const { return scenario::selectorValue(selector); }
    Value operator()(const void*) const { return scenario::Nothing{}; }
};

}  // namespace

std::vector<Value> journalValues(const std::vector<Argument>& arguments) {
    std::vector<Value> values;
    for (const Argument& argument : arguments) values.push_back(std::visit(Converter{}, argument));
    return values;
}

}  // namespace simulator
