#include "simulator/foundation/property_list.hpp"

#include <plist/plist.h>

#include <cstdlib>
#include <fstream>
#include <nlohmann/json.hpp>
#include <stdexcept>

#include "simulator/foundation/binary_list.hpp"
#include "simulator/foundation/foundation_classes.hpp"
#include "simulator/foundation/text_list.hpp"

namespace simulator {

namespace {

using platform::NSArray;
using platform::NSMutableArray;
using platform::NSNumber;
using platform::NSString;
using platform::Object;
using platform::sendClass;

struct NSDate : Object {
    static constexpr platform::FixedString name{"NSDate"};
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

// What a phone keeps is far smaller than this; the sums of it must not end the process.
constexpr std::size_t largest = std::size_t{1} << 20;  // bytes
constexpr std::size_t mostObjects = 100'000;
constexpr int deepestList = 200;

bool isMarkup(std::string_view bytes) {
    const std::size_t first = bytes.find_first_not_of(" \t\r\n");
    if (first == std::string_view::npos) return false;
    const std::string_view rest = bytes.substr(first);
    return rest.starts_with("<?") || rest.starts_with("<!") || rest.starts_with("<plist");
}

// Text that is no UTF-8 yields nothing, as does everything that holds it.
Object stringOf(plist_t node) {
    char* text = nullptr;
    plist_get_string_val(node, &text);
    NSString string = text ? NSString::from(text) : NSString();
    std::free(text);
    return string;
}

Object dataOf(plist_t node) {
    char* bytes = nullptr;
    std::uint64_t size = 0;
    plist_get_data_val(node, &bytes, &size);
    auto data = sendClass<NSData, "dataWithBytes:length:", NSData>(
        static_cast<const void*>(bytes), static_cast<unsigned long>(size));
    std::free(bytes);
    return data;
}

Object dateOf(plist_t node) {
    std::int32_t seconds = 0, microseconds = 0;
    plist_get_date_val(node, &seconds, &microseconds);
    return sendClass<NSDate, "dateWithTimeIntervalSinceReferenceDate:", NSDate>(seconds +
                                                                                microseconds / 1e6);
}

Object objectOf(plist_t node, int depth);

Object arrayOf(plist_t node, int depth) {
    NSMutableArray array = NSMutableArray::empty();
    for (std::uint32_t i = 0; i < plist_array_get_size(node); ++i) {
        Object element = objectOf(plist_array_get_item(node, i), depth + 1);
        if (!element) return {};
        array.add(element);
    }
    return array;
}

Object dictionaryOf(plist_t node, int depth) {
    auto result = sendClass<NSMutableDictionary, "dictionary", NSMutableDictionary>();
    plist_dict_iter position = nullptr;
    plist_dict_new_iter(node, &position);
    bool isWhole = true;
    for (;;) {
        char* key = nullptr;
        plist_t value = nullptr;
        plist_dict_next_item(node, position, &key, &value);
        if (!key && !value) break;
        NSString name = key ? NSString::from(key) : NSString();
        Object element = objectOf(value, depth + 1);
        std::free(key);
        isWhole = name && element;
        if (!isWhole) break;
        result.send<"setObject:forKey:">(element, name);
    }
    std::free(position);
    return isWhole ? Object(result) : Object();
}

Object objectOf(plist_t node, int depth) {
    if (!node || depth > deepestList) return {};
    switch (plist_get_node_type(node)) {
        case PLIST_BOOLEAN: {
            std::uint8_t value = 0;
            plist_get_bool_val(node, &value);
            return sendClass<NSNumber, "numberWithBool:", NSNumber>(
                static_cast<unsigned char>(value));
        }
        case PLIST_UINT: {  // negative ones in two's complement
            std::uint64_t value = 0;
            plist_get_uint_val(node, &value);
            return sendClass<NSNumber, "numberWithLongLong:", NSNumber>(
                static_cast<long long>(value));
        }
        case PLIST_REAL: {
            double value = 0;
            plist_get_real_val(node, &value);
            return sendClass<NSNumber, "numberWithDouble:", NSNumber>(value);
        }
        case PLIST_STRING:
            return stringOf(node);
        case PLIST_DATA:
            return dataOf(node);
        case PLIST_DATE:
            return dateOf(node);
        case PLIST_ARRAY:
            return arrayOf(node, depth);
        case PLIST_DICT:
            return dictionaryOf(node, depth);
        default:
            return {};
    }
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

Object decodePropertyList(std::string_view bytes) {
    constexpr std::string_view byteOrderMark = "\xEF\xBB\xBF";
    if (bytes.starts_with(byteOrderMark)) bytes.remove_prefix(byteOrderMark.size());
    if (bytes.empty() || bytes.size() > largest) return {};
    const bool isBinary = bytes.starts_with("bplist");
    if (!isBinary && bytes.find('\0') != std::string_view::npos) return {};
    if (!isBinary && !isMarkup(bytes)) return readTextList(bytes, deepestList);
    if (isBinary && !isBoundedBinaryList(bytes, deepestList, mostObjects)) return {};
    plist_t root = nullptr;
    plist_from_memory(bytes.data(), static_cast<std::uint32_t>(bytes.size()), &root);
    Object read = root ? objectOf(root, 0) : Object();
    plist_free(root);
    return read;
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
