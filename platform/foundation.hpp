// Foundation, as far as the library uses it. Messages to an empty handle do nothing and yield zero.
#pragma once

#include "platform/block.hpp"
#include "platform/ownership.hpp"

namespace platform {

struct NSString : Object {
    static constexpr FixedString name{"NSString"};
    using Object::Object;

    static NSString from(const char* utf8) {
        return sendClass<NSString, "stringWithUTF8String:", NSString>(utf8);
    }
    const char* utf8() const { return send<"UTF8String", const char*>(); }
    bool equals(NSString other) const { return send<"isEqualToString:", bool>(other); }
    unsigned long length() const { return send<"length", unsigned long>(); }
};

namespace detail {

VANTORI_SHARED VANTORI_WHOLE inline id constantString(std::atomic<id>& cached, const char* text) {
    id found = cached.load(std::memory_order_acquire);
    if (!found) {
        id fresh = NSString::from(text).send<"copy", Object>().get();
        if (cached.compare_exchange_strong(found, fresh)) return fresh;
        Object(fresh).send<"release">();
    }
    return found;
}

}  // namespace detail

// A string constant: "musicBar"_ns is made once and kept for ever.
template <FixedString text>
VANTORI_SHARED NSString operator""_ns() {
    static std::atomic<id> cached{nullptr};
    return NSString(detail::constantString(cached, text.data()));
}

struct NSNumber : Object {
    static constexpr FixedString name{"NSNumber"};
    using Object::Object;
    static NSNumber fromInt(int value) {
        return sendClass<NSNumber, "numberWithInt:", NSNumber>(value);
    }
};

struct NSArray : Object {
    static constexpr FixedString name{"NSArray"};
    using Object::Object;

    // Empty when the file is missing, unreadable, or of another root type.
    static NSArray withContentsOfFile(NSString path) {
        return sendClass<NSArray, "arrayWithContentsOfFile:", NSArray>(path);
    }
    static NSArray with(Object element) {
        return sendClass<NSArray, "arrayWithObject:", NSArray>(element);
    }
    unsigned long count() const { return send<"count", unsigned long>(); }
    // The index must be below count: the platform raises otherwise.
    template <Handle T = Object>
    T at(unsigned long index) const {
        return send<"objectAtIndex:", T>(index);
    }
    Object last() const { return send<"lastObject", Object>(); }
    NSArray adding(Object element) const { return send<"arrayByAddingObject:", NSArray>(element); }
    bool contains(Object element) const { return send<"containsObject:", bool>(element); }
    // Of the first that is equal; it must be there.
    unsigned long indexOf(Object element) const {
        return send<"indexOfObject:", unsigned long>(element);
    }
    bool writeToFile(NSString path, bool atomically) const {
        return send<"writeToFile:atomically:", bool>(path, atomically);
    }
};

struct NSMutableArray : NSArray {
    static constexpr FixedString name{"NSMutableArray"};
    using NSArray::NSArray;
    static NSMutableArray empty() { return sendClass<NSMutableArray, "array", NSMutableArray>(); }
    static NSMutableArray withCapacity(unsigned long capacity) {
        return sendClass<NSMutableArray, "arrayWithCapacity:", NSMutableArray>(capacity);
    }
    void add(Object element) const { send<"addObject:">(element); }
    void replace(unsigned long index, Object element) const {
        send<"replaceObjectAtIndex:withObject:">(index, element);
    }
};

struct NSDictionary : Object {
    static constexpr FixedString name{"NSDictionary"};
    using Object::Object;
    static NSDictionary withContentsOfFile(NSString path) {
        return sendClass<NSDictionary, "dictionaryWithContentsOfFile:", NSDictionary>(path);
    }
    Object at(NSString key) const { return send<"objectForKey:", Object>(key); }
    // Of one entry; empty when there is no value, which the platform would refuse.
    static NSDictionary with(Object value, NSString key) {
        if (!value) return NSDictionary();
        return sendClass<NSDictionary, "dictionaryWithObject:forKey:", NSDictionary>(value, key);
    }
};

struct NSData : Object {
    static constexpr FixedString name{"NSData"};
    using Object::Object;
};

struct NSFileManager : Object {
    static constexpr FixedString name{"NSFileManager"};
    using Object::Object;
    static NSFileManager shared() {
        return sendClass<NSFileManager, "defaultManager", NSFileManager>();
    }
    bool fileExists(NSString path) const { return send<"fileExistsAtPath:", bool>(path); }
};

struct NSFileHandle : Object {
    static constexpr FixedString name{"NSFileHandle"};
    using Object::Object;
    // Empty when the file cannot be opened for reading.
    static NSFileHandle forReading(NSString path) {
        return sendClass<NSFileHandle, "fileHandleForReadingAtPath:", NSFileHandle>(path);
    }
    void close() const { send<"closeFile">(); }
};

struct NSURL : Object {
    static constexpr FixedString name{"NSURL"};
    using Object::Object;
    static NSURL from(NSString address) {
        return sendClass<NSURL, "URLWithString:", NSURL>(address);
    }
    static NSURL file(NSString path) { return sendClass<NSURL, "fileURLWithPath:", NSURL>(path); }
};

struct NSBundle : Object {
    static constexpr FixedString name{"NSBundle"};
    using Object::Object;
    static NSBundle withPath(NSString path) {
        return sendClass<NSBundle, "bundleWithPath:", NSBundle>(path);
    }
    // Also true when it was loaded before.
    bool load() const { return send<"load", bool>(); }
};

struct NSNotificationCenter : Object {
    static constexpr FixedString name{"NSNotificationCenter"};
    using Object::Object;
    static NSNotificationCenter defaultCenter() {
        return sendClass<NSNotificationCenter, "defaultCenter", NSNotificationCenter>();
    }
    // The observer is not retained. From any sender.
    void addObserver(Object observer, SEL action, NSString notification) const {
        send<"addObserver:selector:name:object:">(observer, action, notification, Object());
    }
    // With no object and no user info, delivered before it returns.
    void post(NSString notification) const {
        send<"postNotificationName:object:userInfo:">(notification, Object(), Object());
    }
};

}  // namespace platform
