// The library by itself: a hooked message beside a plain one, and start-up beside the file reads, the
// loading of frameworks, the hook installs and the registration of classes that it cannot do without; the
// last by itself beside the runtime's own calls for the same classes.
//
// Start-up runs once in a process, so every round is a child that is forked just before the phone
// would load the library; the child sends back its time.
#include <benchmark/benchmark.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <ctime>
#include <nlohmann/json.hpp>
#include <sstream>
#include <stdexcept>
#include <utility>
#include <vector>

#include "hooks/start_up.hpp"
#include "platform/definition.hpp"
#include "platform/hook.hpp"
#include "platform/loading.hpp"
#include "settings/settings_file.hpp"
#include "simulator/phone/extension.hpp"
#include "simulator/runtime/hooking.hpp"
#include "simulator/scenario/phone.hpp"

extern "C" void MSHookMessageEx(Class cls, SEL selector, IMP replacement, IMP* saved);

namespace {

using namespace platform;

// --- A hooked message.

struct Plain : Object {
    static constexpr FixedString name{"BenchmarkPlain"};
    using Object::Object;
};
struct Hooked : Object {
    static constexpr FixedString name{"BenchmarkHooked"};
    using Object::Object;
};

template <class T>
long next(T, long number) {
    return number + 1;
}
long nextAfterSystem(System<long(long)> system, Object, long number) { return system(number); }

void registerSpecimens() {
    define<Plain, Object>().method<"next:", &next<Plain>>();
    define<Hooked, Object>().method<"next:", &next<Hooked>>();
    install(hook<"BenchmarkHooked", "next:", &nextAfterSystem>());
}

template <class T>
void sendNext(benchmark::State& state) {
    auto specimen = create<T>();
    long number = 0;
    for (auto _ : state)
        benchmark::DoNotOptimize(number = specimen.template send<"next:", long>(number));
}

// --- Start-up.

struct Row {
    std::string className, selector;
};
struct Needs {
    unsigned long reads = 0;
    std::vector<Row> rows;
};

// Runs the work in a child and answers what it wrote.
template <class Work>
std::string inChild(Work work) {
    int ends[2];
    if (pipe(ends) != 0) throw std::runtime_error("no pipe");
    const pid_t child = fork();
    if (child < 0) throw std::runtime_error("no process can be started");
    if (child == 0) {
        const std::string answer = work();
        const ssize_t written = write(ends[1], answer.data(), answer.size());
        _exit(written == static_cast<ssize_t>(answer.size()) ? 0 : 1);
    }
    close(ends[1]);
    std::string answer;
    char buffer[4096];
    for (ssize_t got; (got = read(ends[0], buffer, sizeof buffer)) > 0;) {
        answer.append(buffer, static_cast<std::size_t>(got));
    }
    close(ends[0]);
    int status = 0;
    waitpid(child, &status, 0);
    if (status != 0) throw std::runtime_error("a measured process failed");
    return answer;
}

// Of the processor: other programs do not count.
double processorSeconds() {
    timespec time{};
    clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &time);
    return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_nsec) * 1e-9;
}

template <class Work>
double secondsInChild(Work work) {
    return std::stod(inChild([&] {
        const double before = processorSeconds();
        work();
        char text[40];
        std::snprintf(text, sizeof text, "%.9f", processorSeconds() - before);
        return std::string(text);
    }));
}

unsigned long readsSeen = 0;
IMP readFile = nullptr;
id countRead(id self, SEL command, id path) {
    ++readsSeen;
    return reinterpret_cast<id (*)(id, SEL, id)>(readFile)(self, command, path);
}

// What one start-up reads and installs.
Needs surveyStartUp() {
    std::istringstream answer(inChild([] {
        Method method = class_getClassMethod(objc_getClass("NSDictionary"),
                                             sel_registerName("dictionaryWithContentsOfFile:"));
        readFile = method_setImplementation(method, reinterpret_cast<IMP>(&countRead));
        vantori::startUp();
        std::ostringstream text;
        text << readsSeen << '\n';
        for (const auto& row : simulator::handovers()) {
            if (row.installed) text << row.className << ' ' << row.selector << '\n';
        }
        return text.str();
    }));
    Needs needs;
    answer >> needs.reads;
    for (Row row; answer >> row.className >> row.selector;) needs.rows.push_back(row);
    return needs;
}

void doNothing(id, SEL) {}

void loadFrameworks() {
    constexpr const char* frameworks = "/System/Library/PrivateFrameworks/";
    for (const char* name : {"ControlCenterUIKit", "ControlCenterUI"}) {
        const std::string folder = frameworks + std::string(name) + ".framework";
        NSBundle::withPath(NSString::from(folder.c_str())).load();
        openLibrary((folder + "/" + name).c_str());
    }
    NSBundle::withPath("/System/Library/ControlCenter/Bundles/DoNotDisturbModule.bundle"_ns).load();
    NSBundle::withPath("/System/Library/ControlCenter/Bundles/ReplayKitModule.bundle"_ns).load();
}

void readLoadAndInstall(const Needs& needs) {
    AutoreleasePool pool;
    loadFrameworks();
    for (unsigned long i = 0; i < needs.reads; ++i) {
        NSDictionary::withContentsOfFile(vantori::settingsPath());
    }
    for (const Row& row : needs.rows) {
        IMP saved = nullptr;
        MSHookMessageEx(objc_getClass(row.className.c_str()),
                        sel_registerName(row.selector.c_str()), reinterpret_cast<IMP>(&doNothing),
                        &saved);
    }
}

// One of the library's classes, as the runtime's calls take it.
struct MethodOfClass {
    std::string selector, types;
    bool ofClass;
};
struct DefinedClass {
    std::string name, parent, variable;
    std::size_t size;
    std::vector<MethodOfClass> methods;
};

void appendMethods(Class cls, bool ofClass, std::vector<MethodOfClass>& methods) {
    unsigned count = 0;
    Method* list = class_copyMethodList(cls, &count);
    for (unsigned i = 0; i < count; ++i)
        methods.push_back(
            {sel_getName(method_getName(list[i])), method_getTypeEncoding(list[i]), ofClass});
    std::free(list);
}

DefinedClass describe(Class cls) {
    DefinedClass described{class_getName(cls), class_getName(class_getSuperclass(cls)), {}, 0, {}};
    unsigned count = 0;
    Ivar* variables = class_copyIvarList(cls, &count);
    if (count > 0) {
        described.variable = ivar_getName(variables[0]);
        described.size =
            class_getInstanceSize(cls) - static_cast<std::size_t>(ivar_getOffset(variables[0]));
    }
    std::free(variables);
    appendMethods(cls, false, described.methods);
    appendMethods(object_getClass(classObject(cls)), true, described.methods);
    return described;
}

// What the library registers, each class after the one below which it stands.
std::vector<DefinedClass> surveyClasses() {
    std::istringstream answer(inChild([] {
        vantori::registerClasses();
        const int count = objc_getClassList(nullptr, 0);
        std::vector<Class> all(static_cast<std::size_t>(count));
        objc_getClassList(all.data(), count);
        std::ostringstream text;
        for (Class cls : all) {
            const std::string name = class_getName(cls);
            if (!name.starts_with("VNT")) continue;
            const DefinedClass one = describe(cls);
            text << one.name << ' ' << one.parent << ' ' << (one.size ? one.variable : "-") << ' '
                 << one.size << ' ' << one.methods.size() << '\n';
            for (const MethodOfClass& method : one.methods)
                text << method.selector << ' ' << method.types << ' ' << method.ofClass << '\n';
        }
        return text.str();
    }));
    std::vector<DefinedClass> classes;
    std::size_t count = 0;
    for (DefinedClass one; answer >> one.name >> one.parent >> one.variable >> one.size >> count;) {
        one.methods.resize(count);
        for (auto& method : one.methods)
            answer >> method.selector >> method.types >> method.ofClass;
        classes.push_back(one);
    }
    // Parents first.
    for (std::size_t at = 0; at < classes.size(); ++at) {
        const auto parent =
            std::find_if(classes.begin() + static_cast<std::ptrdiff_t>(at), classes.end(),
                         [&](const DefinedClass& one) { return one.name == classes[at].parent; });
        if (parent == classes.end()) continue;
        std::iter_swap(classes.begin() + static_cast<std::ptrdiff_t>(at), parent);
        --at;
    }
    return classes;
}

// By the runtime's calls alone.
void registerBare(const std::vector<DefinedClass>& classes) {
    for (const DefinedClass& one : classes) {
        Class cls = objc_allocateClassPair(objc_getClass(one.parent.c_str()), one.name.c_str(), 0);
        if (one.size) class_addIvar(cls, one.variable.c_str(), one.size, 3, "{?=}");
        objc_registerClassPair(cls);
        for (const MethodOfClass& method : one.methods)
            class_addMethod(method.ofClass ? object_getClass(classObject(cls)) : cls,
                            sel_registerName(method.selector.c_str()),
                            reinterpret_cast<IMP>(&doNothing), method.types.c_str());
    }
}

void registration(benchmark::State& state) {
    for (auto _ : state) state.SetIterationTime(secondsInChild(&vantori::registerClasses));
}

void registrationFloor(benchmark::State& state) {
    const std::vector<DefinedClass> classes = surveyClasses();
    std::size_t methods = 0;
    for (const DefinedClass& one : classes) methods += one.methods.size();
    for (auto _ : state) state.SetIterationTime(secondsInChild([&] { registerBare(classes); }));
    state.counters["classes"] = static_cast<double>(classes.size());
    state.counters["methods"] = static_cast<double>(methods);
}

void startUpWhole(benchmark::State& state) {
    for (auto _ : state) state.SetIterationTime(secondsInChild(&vantori::startUp));
}

void startUpFloor(benchmark::State& state) {
    const Needs needs = surveyStartUp();
    for (auto _ : state) {
        state.SetIterationTime(secondsInChild([&] {
            vantori::registerClasses();
            readLoadAndInstall(needs);
        }));
    }
    state.counters["reads"] = static_cast<double>(needs.reads);
    state.counters["hooks"] = static_cast<double>(needs.rows.size());
}

constexpr int startUps = 40;

void registerBenchmarks() {
    registerSpecimens();
    benchmark::RegisterBenchmark("message, hooked", &sendNext<Hooked>);
    benchmark::RegisterBenchmark("message, hooked/floor", &sendNext<Plain>);
    for (const auto& [name, measured] :
         {std::pair{"start-up", &startUpWhole}, std::pair{"start-up/floor", &startUpFloor},
          std::pair{"registration of the classes", &registration},
          std::pair{"registration of the classes/floor", &registrationFloor}}) {
        benchmark::RegisterBenchmark(name, measured)
            ->UseManualTime()
            ->Iterations(startUps)
            ->Unit(benchmark::kMicrosecond);
    }
}

// Instead of the library the phone "loads" the measurements; it need not go on booting.
void measure() {
    registerBenchmarks();
    benchmark::RunSpecifiedBenchmarks();
    std::fflush(nullptr);
    throw std::runtime_error("measured");
}

}  // namespace

int main(int count, char** arguments) {
    benchmark::Initialize(&count, arguments);
    if (benchmark::ReportUnrecognizedArguments(count, arguments)) return 1;
    AutoreleasePool pool;
    auto phone = simulator::makePhone({});
    for (const char* key : {"enabled", "tapToOpen", "leftGestureEnabled", "middleGestureEnabled"}) {
        phone->setting(key, true);
    }
    bool measured = false;
    simulator::setExtensionLoader([&] {
        measured = true;
        measure();
    });
    try {
        phone->boot();
    } catch (const simulator::PhoneError&) {
        // The loader ends the boot.
    }
    return measured ? 0 : 1;
}
