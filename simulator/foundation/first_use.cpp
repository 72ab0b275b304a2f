#include "simulator/foundation/first_use.hpp"

#if defined(__SANITIZE_ADDRESS__)

#include <sanitizer/lsan_interface.h>
#include <unistd.h>

#include <filesystem>

#include "platform/foundation.hpp"

namespace simulator {

void makeFirstUses() {
    using namespace platform;
    __lsan_disable();
    {
        AutoreleasePool pool;
        const auto file = std::filesystem::temp_directory_path() /
                          ("vantori-first-use-" + std::to_string(getpid()));
        Object list =
            Object(classObject(objc_getClass("NSMutableDictionary"))).send<"dictionary", Object>();
        list.send<"setObject:forKey:">("value"_ns, "key"_ns);
        list.send<"writeToFile:atomically:", bool>(NSString::from(file.c_str()), true);
        NSDictionary::withContentsOfFile(NSString::from(file.c_str()));
        std::error_code gone;
        std::filesystem::remove(file, gone);
    }
    __lsan_enable();
}

}  // namespace simulator

#else

namespace simulator {

void makeFirstUses() {}

}  // namespace simulator

#endif
