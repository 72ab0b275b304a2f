#include "simulator/foundation/first_use.hpp"

#include <unistd.h>

#include <filesystem>

#include "platform/foundation.hpp"
#include "simulator/runtime/leaks.hpp"

namespace simulator {

void makeFirstUses() {
    using namespace platform;
    if (!leaksAreChecked) return;
    LeaksAllowed allowed;
    AutoreleasePool pool;
    const auto file =
        std::filesystem::temp_directory_path() / ("vantori-first-use-" + std::to_string(getpid()));
    Object list =
        Object(classObject(objc_getClass("NSMutableDictionary"))).send<"dictionary", Object>();
    list.send<"setObject:forKey:">("value"_ns, "key"_ns);
    list.send<"writeToFile:atomically:", bool>(NSString::from(file.c_str()), true);
    NSDictionary::withContentsOfFile(NSString::from(file.c_str()));
    std::error_code gone;
    std::filesystem::remove(file, gone);
}

}  // namespace simulator
