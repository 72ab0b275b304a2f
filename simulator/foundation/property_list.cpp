#include "simulator/foundation/property_list.hpp"

#include <fstream>
#include <nlohmann/json.hpp>
#include <stdexcept>

#include "simulator/foundation/property_list_guard.hpp"
#include "simulator/runtime/leaks.hpp"

namespace simulator {

namespace {

using platform::NSArray;
using platform::NSMutableArray;
using platform::NSNumber;
using platform::NSString;
using platform::Object;
using platform::sendClass;

struct NSMutableDictionary : platform::NSDictionary {
    static constexpr platform::FixedString name{"NSMutableDictionary"};
    using NSDictionary::NSDictionary;
};
struct NSData : Object {
    static constexpr platform::FixedString name{"NSData"};
    using Object::Object;
};
struct NSPropertyListSerialization : Object {
    static constexpr platform::FixedString name{"NSPropertyListSerialization"};
    using Object::Object;
};

Object list(const nlohmann::json& value) {
    NSMutableArray array = NSMutableArray::empty();
    for (const auto& element : value) array.add(propertyListObject(element));
    return array;
}

Object dictionary(const nlohmann::json& value) {
    auto result = sendClass<NSMutableDictionary, "dictionary", NSMutableDictionary>();
    for (const auto& [key, element] : value.items()) {
        result.send<"setObject:forKey:">(propertyListObject(element), NSString::from(key.c_str()));
    }
    return result;
}

nlohmann::json numberJson(NSNumber number) {
    switch (*number.send<"objCType", const char*>()) {
        case 'B':
        case 'c':
        case 'C':  // the encodings that booleans have
            return number.send<"boolValue", unsigned char>() != 0;
        case 'f':
        case 'd':
            return number.send<"doubleValue", double>();
        default:
            return number.send<"longLongValue", long long>();
    }
}

nlohmann::json listJson(NSArray array) {
    nlohmann::json result = nlohmann::json::array();
    const auto count = array.send<"count", unsigned long>();
    for (unsigned long i = 0; i < count; ++i)
        result.push_back(propertyListJson(array.send<"objectAtIndex:", Object>(i)));
    return result;
}

nlohmann::json dictionaryJson(platform::NSDictionary dictionary) {
    nlohmann::json result = nlohmann::json::object();
    const NSArray keys = dictionary.send<"allKeys", NSArray>();
    const auto count = keys.send<"count", unsigned long>();
    for (unsigned long i = 0; i < count; ++i) {
        const auto key = keys.send<"objectAtIndex:", NSString>(i);
        result[key.utf8()] = propertyListJson(dictionary.send<"objectForKey:", Object>(key));
    }
    return result;
}

NSData dataOf(std::string_view bytes) {
    return sendClass<NSData, "dataWithBytes:length:", NSData>(
        static_cast<const void*>(bytes.data()), static_cast<unsigned long>(bytes.size()));
}

}  // namespace

Object propertyListObject(const nlohmann::json& value) {
    using Type = nlohmann::json::value_t;
    switch (value.type()) {
        case Type::boolean:
            return sendClass<NSNumber, "numberWithBool:", NSNumber>(
                static_cast<unsigned char>(value.get<bool>()));
        case Type::number_integer:
        case Type::number_unsigned:
            return sendClass<NSNumber, "numberWithLongLong:", NSNumber>(value.get<long long>());
        case Type::number_float:
            return sendClass<NSNumber, "numberWithDouble:", NSNumber>(value.get<double>());
        case Type::string:
            return NSString::from(value.get_ref<const std::string&>().c_str());
        case Type::array:
            return list(value);
        case Type::object:
            return dictionary(value);
        default:
            throw std::invalid_argument("a property list holds no null");
    }
}

nlohmann::json propertyListJson(Object value) {
    using platform::classOf;
    if (value.isKindOfClass(classOf<NSString>())) return platform::as<NSString>(value).utf8();
    if (value.isKindOfClass(classOf<NSNumber>())) return numberJson(platform::as<NSNumber>(value));
    if (value.isKindOfClass(classOf<NSArray>())) return listJson(platform::as<NSArray>(value));
    if (value.isKindOfClass(classOf<platform::NSDictionary>()))
        return dictionaryJson(platform::as<platform::NSDictionary>(value));
    return value.send<"description", NSString>().utf8();
}

bool isPropertyList(Object value) {
    using platform::as;
    for (const char* leaf : {"NSString", "NSNumber", "NSDate", "NSData"}) {
        if (value.isKindOfClass(objc_getClass(leaf))) return true;
    }
    if (value.isKindOfClass(platform::classOf<NSArray>())) {
        const auto list = as<NSArray>(value);
        for (unsigned long i = 0; i < list.count(); ++i) {
            if (!isPropertyList(list.at(i))) return false;
        }
        return true;
    }
    if (!value.isKindOfClass(platform::classOf<platform::NSDictionary>())) return false;
    const auto keys = value.send<"allKeys", NSArray>();
    for (unsigned long i = 0; i < keys.count(); ++i) {
        const Object key = keys.at(i);
        if (!key.isKindOfClass(platform::classOf<NSString>())) return false;
        if (!isPropertyList(value.send<"objectForKey:", Object>(key))) return false;
    }
    return true;
}

std::string encodePropertyList(Object root, PropertyListFormat format) {
    NSData data = sendClass<NSPropertyListSerialization,
                            "dataWithPropertyList:format:options:error:", NSData>(
        root, static_cast<unsigned long>(format), 0UL, static_cast<id*>(nullptr));
    if (!data) throw std::invalid_argument("not a property list");
    return {static_cast<const char*>(data.send<"bytes", const void*>()),
            data.send<"length", unsigned long>()};
}

static Object readPropertyList(std::string_view bytes) {
    try {
        return sendClass<NSPropertyListSerialization,
                         "propertyListWithData:options:format:error:", Object>(
            dataOf(bytes), 0UL, static_cast<unsigned long*>(nullptr), static_cast<id*>(nullptr));
    } catch (...) {  // malformed binary lists raise
        return {};
    }
}

static bool isReadable(std::string_view bytes) {
    LeaksAllowed allowed;
    platform::AutoreleasePool pool;
    return bool(readPropertyList(bytes));
}

Object decodePropertyList(std::string_view bytes) {
    if (!isHarmlessPropertyList(bytes)) return {};
    // The declaration is optional to the platform, but not to the reader underneath.
    if (bytes.starts_with("<plist") || bytes.starts_with("<!DOCTYPE")) {
        return decodePropertyList("<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n" +
                                  std::string(bytes));
    }
    // The reader loses a string when it gives up on a malformed list.
    if (leaksAreChecked && !isReadable(bytes)) return {};
    return readPropertyList(bytes);
}

std::optional<std::string> readFile(const std::filesystem::path& path, std::size_t limit) {
    std::error_code error;
    if (!std::filesystem::is_regular_file(path, error)) return std::nullopt;
    auto size = std::filesystem::file_size(path, error);
    if (error || size > limit) return std::nullopt;
    std::ifstream stream(path, std::ios::binary);
    std::string bytes(size, '\0');
    if (!stream.read(bytes.data(), static_cast<std::streamsize>(size))) return std::nullopt;
    return bytes;
}

bool writeFile(const std::filesystem::path& path, std::string_view bytes) {
    std::error_code error;
    std::filesystem::create_directories(path.parent_path(), error);
    std::ofstream stream(path, std::ios::binary | std::ios::trunc);
    stream.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
    return static_cast<bool>(stream.flush());
}

}  // namespace simulator
