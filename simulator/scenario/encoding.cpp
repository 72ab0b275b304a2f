// Reading type encodings, and moving values in and out of memory by them.
#include "simulator/scenario/encoding.hpp"

#include <cmath>
#include <cstring>
#include <limits>
#include <string_view>
#include <type_traits>

#include "simulator/scenario/errors.hpp"
#include "simulator/scenario/objective_c.hpp"

namespace simulator::scenario {
namespace {

// Calls `use` with a zero of the C type that a letter stands for; false when it is no number.
template <typename Use>
bool withNumberType(char kind, Use use) {
    switch (kind) {
        case 'B':
            return use(bool()), true;
        case 'c':
            return use(static_cast<signed char>(0)), true;
        case 'C':
            return use(static_cast<unsigned char>(0)), true;
        case 's':
            return use(short()), true;
        case 'S':
            return use(static_cast<unsigned short>(0)), true;
        case 'i':
            return use(int()), true;
        case 'I':
            return use(0U), true;
        case 'l':
            return use(0L), true;
        case 'L':
            return use(0UL), true;
        case 'q':
            return use(0LL), true;
        case 'Q':
            return use(0ULL), true;
        case 'f':
            return use(0.0F), true;
        case 'd':
            return use(0.0), true;
        default:
            return false;
    }
}

ffi_type* scalarType(char kind) {
    switch (kind) {
        case 'v':
            return &ffi_type_void;
        case 'B':
        case 'C':
            return &ffi_type_uint8;
        case 'c':
            return &ffi_type_sint8;
        case 's':
            return &ffi_type_sint16;
        case 'S':
            return &ffi_type_uint16;
        case 'i':
            return &ffi_type_sint32;
        case 'I':
            return &ffi_type_uint32;
        case 'l':
        case 'q':
            return &ffi_type_sint64;
        case 'L':
        case 'Q':
            return &ffi_type_uint64;
        case 'f':
            return &ffi_type_float;
        case 'd':
            return &ffi_type_double;
        default:
            return &ffi_type_pointer;
    }
}

template <typename T>
T loadAs(const void* memory) {
    T value;
    std::memcpy(&value, memory, sizeof value);
    return value;
}

template <typename T>
void storeAs(T value, void* memory) {
    std::memcpy(memory, &value, sizeof value);
}

bool isBoolean(char kind) { return kind == 'B' || kind == 'c' || kind == 'C'; }

// As an assignment converts: fractions are cut off, a negative number wraps into an unsigned one.
template <typename T>
T converted(long double number) {
    if constexpr (std::is_same_v<T, bool>) {
        return number != 0;
    } else if constexpr (std::is_floating_point_v<T>) {
        return static_cast<T>(number);
    } else {
        const auto lowest =
            static_cast<long double>(std::numeric_limits<std::make_signed_t<T>>::min());
        const auto highest = static_cast<long double>(std::numeric_limits<T>::max());
        const long double whole = std::trunc(number);
        if (!(whole >= lowest && whole <= highest))
            throw EvaluationError(printed(Number{number}) + " is out of range");
        if (whole < 0) return static_cast<T>(static_cast<std::make_signed_t<T>>(whole));
        return static_cast<T>(whole);
    }
}

id boxed(const Number& number) {
    const id factory = classNamed("NSNumber");
    switch (number.kind) {
        case Number::Kind::boolean:
            return send<id>(factory, "numberWithBool:", static_cast<BOOL>(number.value != 0));
        case Number::Kind::real:
            return send<id>(factory, "numberWithDouble:", static_cast<double>(number.value));
        case Number::Kind::integer:
            break;
    }
    if (number.value > static_cast<long double>(std::numeric_limits<long long>::max()))
        return send<id>(factory,
                        "numberWithUnsignedLongLong:", converted<unsigned long long>(number.value));
    return send<id>(factory, "numberWithLongLong:", converted<long long>(number.value));
}

const char* pastName(const char* encoding) {
    if (*encoding != '"') return encoding;
    const char* end = std::strchr(encoding + 1, '"');
    if (end == nullptr) throw EvaluationError("a type encoding has an open quote");
    return end + 1;
}

// Past the rest of a pointer's target, which is never looked into.
const char* pastTarget(const char* encoding) {
    int depth = 0;
    for (;; ++encoding) {
        if (*encoding == '\0') return encoding;
        if (std::strchr("{([", *encoding) != nullptr) ++depth;
        if (std::strchr("})]", *encoding) != nullptr) --depth;
        const bool prefix = std::strchr("^rnNoORVA", *encoding) != nullptr;
        if (depth == 0 && !prefix) break;
    }
    const bool object = *encoding == '@';
    ++encoding;
    if (object && *encoding == '?') ++encoding;
    return object ? pastName(encoding) : encoding;
}

}  // namespace

Type Type::read(const char*& encoding) {
    while (*encoding != '\0' && std::strchr("rnNoORVA", *encoding) != nullptr) ++encoding;
    Type type;
    type.kind_ = *encoding;
    switch (type.kind_) {
        case '{':
            type = readStructure(encoding);
            break;
        case '^':
            encoding = pastTarget(encoding);
            break;
        case '@':
            ++encoding;
            if (*encoding == '?') {
                type.kind_ = '?';
                ++encoding;
            }
            encoding = pastName(encoding);
            break;
        default:
            if (type.kind_ == '\0' ||
                std::string_view("vBcCsSiIlLqQfd#:*").find(type.kind_) == std::string_view::npos)
                throw EvaluationError(std::string("the type encoding '") + encoding +
                                      "' cannot be used from a scenario");
            ++encoding;
    }
    // The offset on the stack, which compilers add; a register's offset begins with a sign.
    while (*encoding != '\0' && std::strchr("+-0123456789", *encoding) != nullptr) ++encoding;
    return type;
}

Type Type::readStructure(const char*& encoding) {
    Type type;
    type.kind_ = '{';
    const std::string whole = encoding;
    while (*encoding != '\0' && *encoding != '=' && *encoding != '}') ++encoding;
    if (*encoding == '=') ++encoding;
    while (*encoding != '\0' && *encoding != '}') {
        encoding = pastName(encoding);
        type.members_.push_back(read(encoding));
    }
    if (*encoding != '}' || type.members_.empty())
        throw EvaluationError("the structure '" + whole + "' has no known members");
    ++encoding;
    type.layOut();
    return type;
}

void Type::layOut() {
    layout_ = std::make_unique<Layout>();
    for (const Type& member : members_) layout_->elements.push_back(member.forCalls());
    layout_->elements.push_back(nullptr);
    layout_->description.type = FFI_TYPE_STRUCT;
    layout_->description.elements = layout_->elements.data();
    layout_->offsets.resize(members_.size());
    ffi_get_struct_offsets(FFI_DEFAULT_ABI, &layout_->description, layout_->offsets.data());
}

ffi_type* Type::forCalls() const { return layout_ ? &layout_->description : scalarType(kind_); }

Value Type::load(const void* memory) const {
    Value result;
    const bool number = withNumberType(kind_, [&](auto zero) {
        using T = decltype(zero);
        const auto loaded = loadAs<T>(memory);
        const auto kind = isBoolean(kind_)              ? Number::Kind::boolean
                          : std::is_floating_point_v<T> ? Number::Kind::real
                                                        : Number::Kind::integer;
        result = Number{static_cast<long double>(loaded), kind};
    });
    if (number) return result;
    switch (kind_) {
        case 'v':
            return Void{};
        case '@':
        case '#':
        case '?':
            return objectValue(loadAs<id>(memory));
        case ':':
            return selectorValue(loadAs<SEL>(memory));
        case '*': {
            const auto* text = loadAs<const char*>(memory);
            return text == nullptr ? Value(Nothing{}) : stringValue(text);
        }
        case '{': {
            Structure structure;
            appendMembers(static_cast<const char*>(memory), structure.members);
            return structure;
        }
        default: {
            const auto address = loadAs<std::uintptr_t>(memory);
            if (address == 0) return Nothing{};
            return integerValue(static_cast<long double>(address));
        }
    }
}

void Type::appendMembers(const char* memory, std::vector<double>& members) const {
    for (std::size_t index = 0; index < members_.size(); ++index) {
        const Type& member = members_[index];
        const char* place = memory + layout_->offsets[index];
        if (member.kind_ == '{') {
            member.appendMembers(place, members);
            continue;
        }
        const auto number = asNumber(member.load(place));
        if (!number) throw EvaluationError("a structure holds more than numbers");
        members.push_back(static_cast<double>(number->value));
    }
}

std::size_t Type::countMembers() const {
    if (kind_ != '{') return 1;
    std::size_t count = 0;
    for (const Type& member : members_) count += member.countMembers();
    return count;
}

const double* Type::storeMembers(const double* next, char* memory) const {
    for (std::size_t index = 0; index < members_.size(); ++index) {
        const Type& member = members_[index];
        char* place = memory + layout_->offsets[index];
        if (member.kind_ == '{')
            next = member.storeMembers(next, place);
        else
            member.store(realValue(*next++), place);
    }
    return next;
}

std::string Type::wanted() const {
    switch (kind_) {
        case '@':
            return "an object";
        case '#':
            return "a class";
        case ':':
            return "a selector";
        case '?':
            return "a block, for which only nil can be given";
        case '*':
            return "a string";
        case '^':
            return "a pointer, for which only nil can be given";
        case '{':
            return "a structure of " + std::to_string(countMembers()) + " numbers";
        default:
            return "a number";
    }
}

void Type::store(const Value& value, void* memory) const {
    const auto refuse = [&] {
        throw EvaluationError("it must be " + wanted() + ", got " + printed(value));
    };
    const auto number = asNumber(value);
    const bool isNumber = withNumberType(kind_, [&](auto zero) {
        if (!number) refuse();
        storeAs(converted<decltype(zero)>(number->value), memory);
    });
    if (isNumber) return;
    const bool isNil = std::holds_alternative<Nothing>(value);
    if (isNil) {
        std::memset(memory, 0, size());
        return;
    }
    const auto* object = std::get_if<Object>(&value);
    if (kind_ == '@' && std::holds_alternative<Number>(value)) {
        storeAs(boxed(*number), memory);
    } else if (kind_ == '@' && object != nullptr) {
        storeAs(object->object, memory);
    } else if (kind_ == '#' && object != nullptr && isClass(object->object)) {
        storeAs(object->object, memory);
    } else if (kind_ == ':' && std::holds_alternative<Selector>(value)) {
        storeAs(std::get<Selector>(value).selector, memory);
    } else if (kind_ == '*' && asText(value)) {
        storeAs(send<const char*>(object->object, "UTF8String"), memory);
    } else if (kind_ == '{' && std::holds_alternative<Structure>(value) &&
               std::get<Structure>(value).members.size() == countMembers()) {
        storeMembers(std::get<Structure>(value).members.data(), static_cast<char*>(memory));
    } else {
        refuse();
    }
}

Signature readSignature(const char* encoding) {
    if (encoding == nullptr) throw EvaluationError("the method has no type encoding");
    Signature signature{Type::read(encoding), {}};
    while (*encoding != '\0') signature.arguments.push_back(Type::read(encoding));
    if (signature.arguments.size() < 2)
        throw EvaluationError("the method's type encoding names no receiver and selector");
    signature.arguments.erase(signature.arguments.begin(), signature.arguments.begin() + 2);
    return signature;
}

}  // namespace simulator::scenario
