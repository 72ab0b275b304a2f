#include "simulator/foundation/files.hpp"

#include <stdexcept>

#include "simulator/foundation/device_root.hpp"
#include "simulator/foundation/foundation_classes.hpp"
#include "simulator/foundation/property_list.hpp"
#include "simulator/runtime/replacement.hpp"

namespace simulator {

namespace {

using platform::NSString;
using platform::Object;
using Boolean = unsigned char;  // GNUstep's BOOL

id mapped(id path) {
    if (!path) return nullptr;
    const char* text = NSString(path).utf8();
    return text ? NSString::from(DeviceRoot::shared().map(text).c_str()).get() : path;
}

// A method whose first argument is a path. It is replaced by one that passes the mapped path on.
template <platform::FixedString cls, MethodKind kind, platform::FixedString message, class R,
          class... Rest>
struct Redirected {
    static inline IMP system = nullptr;
    static R run(id self, SEL command, id path, Rest... rest) {
        return reinterpret_cast<R (*)(id, SEL, id, Rest...)>(system)(self, command, mapped(path),
                                                                     rest...);
    }
    static void install() {
        system = replaceMethod(cls.data(), kind, message.data(), reinterpret_cast<IMP>(&run));
    }
};

// The same for a copy or a move, which take two paths.
template <platform::FixedString message>
struct RedirectedPair {
    static inline IMP system = nullptr;
    static Boolean run(id self, SEL command, id from, id to, id* error) {
        return reinterpret_cast<Boolean (*)(id, SEL, id, id, id*)>(system)(
            self, command, mapped(from), mapped(to), error);
    }
    static void install() {
        system = replaceMethod("NSFileManager", MethodKind::instance, message.data(),
                               reinterpret_cast<IMP>(&run));
    }
};

Object rootOfFile(id path, const char* kind) {
    const char* text = path ? NSString(path).utf8() : nullptr;
    if (!text) return {};
    auto bytes = readFile(DeviceRoot::shared().map(text));
    if (!bytes) return {};
    Object root = decodePropertyList(*bytes);
    return root.isKindOfClass(objc_getClass(kind)) ? root : Object();
}

id dictionaryWithContents(id self, SEL, id path) {
    Object root = rootOfFile(path, "NSDictionary");
    return root ? Object(self).send<"dictionaryWithDictionary:", Object>(root).get() : nullptr;
}

id arrayWithContents(id self, SEL, id path) {
    Object root = rootOfFile(path, "NSArray");
    return root ? Object(self).send<"arrayWithArray:", Object>(root).get() : nullptr;
}

template <platform::FixedString initialiser>
id initialised(id self, Object root) {
    if (root) return Object(self).send<initialiser, Object>(root).get();
    Object(self).send<"release">();
    return nullptr;
}

id initDictionary(id self, SEL, id path) {
    return initialised<"initWithDictionary:">(self, rootOfFile(path, "NSDictionary"));
}

id initArray(id self, SEL, id path) {
    return initialised<"initWithArray:">(self, rootOfFile(path, "NSArray"));
}

// Lists are written as XML, as the platform does; the Foundation underneath would write its old text
// form. What is no property list is not written.
Boolean writeList(id self, SEL, id path, Boolean atomically) {
    if (!isPropertyList(Object(self))) return 0;  // the Foundation underneath writes descriptions
    try {
        std::string text = encodePropertyList(Object(self), PropertyListFormat::xml);
        auto bytes = platform::sendClass<NSData, "dataWithBytes:length:", NSData>(
            static_cast<const void*>(text.data()), static_cast<unsigned long>(text.size()));
        return bytes.send<"writeToFile:atomically:", Boolean>(Object(path), atomically);
    } catch (const std::invalid_argument&) {
        return 0;
    }
}

template <class Function>
void replaceOne(const char* cls, MethodKind kind, const char* message, Function* function) {
    replaceMethod(cls, kind, message, reinterpret_cast<IMP>(function));
}

void installReaders() {
    for (const char* cls : {"NSDictionary", "NSMutableDictionary"}) {
        replaceOne(cls, MethodKind::onClass,
                   "dictionaryWithContentsOfFile:", &dictionaryWithContents);
        replaceOne(cls, MethodKind::instance, "initWithContentsOfFile:", &initDictionary);
    }
    for (const char* cls : {"NSArray", "NSMutableArray"}) {
        replaceOne(cls, MethodKind::onClass, "arrayWithContentsOfFile:", &arrayWithContents);
        replaceOne(cls, MethodKind::instance, "initWithContentsOfFile:", &initArray);
    }
}

constexpr MethodKind instance = MethodKind::instance;
constexpr MethodKind onClass = MethodKind::onClass;

void installFileManager() {
    Redirected<"NSFileManager", instance, "fileExistsAtPath:", Boolean>::install();
    Redirected<"NSFileManager", instance, "fileExistsAtPath:isDirectory:", Boolean,
               Boolean*>::install();
    Redirected<"NSFileManager", instance, "isReadableFileAtPath:", Boolean>::install();
    Redirected<"NSFileManager", instance, "isWritableFileAtPath:", Boolean>::install();
    Redirected<"NSFileManager", instance, "isDeletableFileAtPath:", Boolean>::install();
    Redirected<"NSFileManager", instance, "contentsAtPath:", id>::install();
    Redirected<"NSFileManager", instance, "createFileAtPath:contents:attributes:", Boolean, id,
               id>::install();
    Redirected<"NSFileManager", instance, "createDirectoryAtPath:attributes:", Boolean,
               id>::install();
    Redirected<"NSFileManager", instance,
               "createDirectoryAtPath:withIntermediateDirectories:attributes:error:", Boolean,
               Boolean, id, id*>::install();
    Redirected<"NSFileManager", instance, "removeItemAtPath:error:", Boolean, id*>::install();
    Redirected<"NSFileManager", instance, "removeFileAtPath:handler:", Boolean, id>::install();
    Redirected<"NSFileManager", instance, "attributesOfItemAtPath:error:", id, id*>::install();
    Redirected<"NSFileManager", instance, "contentsOfDirectoryAtPath:error:", id, id*>::install();
    RedirectedPair<"copyItemAtPath:toPath:error:">::install();
    RedirectedPair<"moveItemAtPath:toPath:error:">::install();
}

void installContents() {
    Redirected<"NSFileHandle", onClass, "fileHandleForReadingAtPath:", id>::install();
    Redirected<"NSFileHandle", onClass, "fileHandleForWritingAtPath:", id>::install();
    Redirected<"NSFileHandle", onClass, "fileHandleForUpdatingAtPath:", id>::install();
    Redirected<"NSData", onClass, "dataWithContentsOfFile:", id>::install();
    Redirected<"NSData", instance, "initWithContentsOfFile:", id>::install();
    Redirected<"NSData", instance, "writeToFile:atomically:", Boolean, Boolean>::install();
    Redirected<"NSString", instance, "writeToFile:atomically:encoding:error:", Boolean, Boolean,
               unsigned long, id*>::install();
    Redirected<"NSString", onClass, "stringWithContentsOfFile:encoding:error:", id, unsigned long,
               id*>::install();
    for (const char* cls : {"NSDictionary", "NSArray"}) {
        replaceOne(cls, instance, "writeToFile:atomically:", &writeList);
    }
}

}  // namespace

void installFiles() {
    static bool installed = false;
    if (installed) return;
    installed = true;
    installReaders();
    installFileManager();
    installContents();
}

}  // namespace simulator
