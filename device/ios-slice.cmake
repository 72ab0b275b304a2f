# What the toolchains of both slices share. CMake's own iOS platform asks Apple's tools for an SDK, so
# the system is called Generic here: the compiler's flags are all below, and device/CMakeLists.txt
# calls the linker itself. The including file names the slice, its compiler and its oldest iOS.
set(CMAKE_SYSTEM_NAME Generic)
set(CMAKE_SYSTEM_PROCESSOR "${slice}")
set(CMAKE_CXX_COMPILER_TARGET "${slice}-apple-ios${oldest_ios}")
# There is no program to link: the check of the compiler stops at an archive.
set(CMAKE_TRY_COMPILE_TARGET_TYPE STATIC_LIBRARY)

set(libcxx_headers /usr/lib/llvm-19/include/c++/v1)
if(NOT EXISTS "${libcxx_headers}/version")
  message(FATAL_ERROR
    "libc++'s headers are not in ${libcxx_headers}: install libc++-19-dev (scripts/packages does)")
endif()

# In this order: our configuration of libc++, libc++, and the C headers under it.
set(device_headers "${CMAKE_CURRENT_LIST_DIR}/include")
string(JOIN " " CMAKE_CXX_FLAGS_INIT
  -nostdinc++ -nostdlibinc
  "-isystem ${device_headers}/libcxx" "-isystem ${libcxx_headers}" "-isystem ${device_headers}/libc")
