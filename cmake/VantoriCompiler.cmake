# One place for the language, the warnings and the sanitizers of every target.
set(CMAKE_CXX_STANDARD 20)
set(CMAKE_CXX_STANDARD_REQUIRED ON)
set(CMAKE_CXX_EXTENSIONS OFF)
set(CMAKE_CXX_VISIBILITY_PRESET hidden)
set(CMAKE_VISIBILITY_INLINES_HIDDEN ON)
set(CMAKE_POSITION_INDEPENDENT_CODE ON)
set(CMAKE_CXX_FLAGS_RELEASE "-O2 -DNDEBUG")

option(VANTORI_SANITIZE "Address and undefined-behaviour sanitizers" OFF)
option(VANTORI_FUZZ "Programs that libFuzzer drives, under the sanitizers; needs clang" OFF)

find_program(CCACHE ccache)
if(CCACHE)
  set(CMAKE_CXX_COMPILER_LAUNCHER "${CCACHE}")
endif()

# What many files include is compiled once and reused. A build for another machine goes without: there a
# file that does not include what it uses is told, unless another of its batch does.
if(NOT CMAKE_CROSSCOMPILING)
  set(vantori_precompiled <algorithm> <array> <cmath> <filesystem> <functional> <map> <memory>
    <optional> <platform/definition.hpp> <platform/hook.hpp> <platform/springboard.hpp> <platform/uikit.hpp> <set> <span> <sstream> <stdexcept> <string> <string_view> <tuple> <utility> <variant>
    <vector>)
endif()

add_library(vantori_warnings INTERFACE)
# Implementations travel as IMP and are cast back where they are called: that is the runtime's way.
# g++ 12 sees overlapping copies inside std::string where there are none.
target_compile_options(vantori_warnings INTERFACE
  -Wall -Wextra -Wpedantic -Wshadow -Werror -Wno-cast-function-type $<$<CXX_COMPILER_ID:GNU>:-Wno-restrict>)
if(VANTORI_FUZZ)
  # The object runtime's headers are among those of the compiler that brings it.
  execute_process(COMMAND g++ -print-file-name=include OUTPUT_VARIABLE runtime_headers
    OUTPUT_STRIP_TRAILING_WHITESPACE COMMAND_ERROR_IS_FATAL ANY)
  # g++ 12's std::stable_sort asks for memory in a way that clang says is of the past.
  add_compile_options(-fsanitize=fuzzer-no-link -idirafter "${runtime_headers}" -Wno-deprecated-declarations)
endif()
if(VANTORI_SANITIZE OR VANTORI_FUZZ)
  add_compile_options(-fsanitize=address,undefined -fno-sanitize-recover=undefined -fno-omit-frame-pointer -O1 -g1)
  add_link_options(-fsanitize=address,undefined)
endif()
if(VANTORI_FUZZ)
  add_compile_options(-fno-sanitize=function)  # as above: implementations travel as IMP
endif()
