# Toolchain for the phone on arm64 Linux, from any machine: Debian's clang and lld, and the arm64
# packages that scripts/sysroot unpacks. It runs by itself on arm64, elsewhere through qemu.
set(CMAKE_SYSTEM_NAME Linux)
set(CMAKE_SYSTEM_PROCESSOR aarch64)

get_filename_component(CMAKE_SYSROOT "${CMAKE_CURRENT_LIST_DIR}/../build/sysroot-arm64" ABSOLUTE)
if(NOT EXISTS "${CMAKE_SYSROOT}/usr/include")
  message(FATAL_ERROR "There is no ${CMAKE_SYSROOT}: run scripts/sysroot first")
endif()

set(CMAKE_CXX_COMPILER clang++-19)
set(CMAKE_CXX_COMPILER_TARGET aarch64-linux-gnu)
# GCC's libstdc++ is the sysroot's; say which, not the newest of this machine. Its stable_sort uses
# what it marks as deprecated itself.
string(JOIN " " CMAKE_CXX_FLAGS_INIT
  "--gcc-install-dir=${CMAKE_SYSROOT}/usr/lib/gcc/aarch64-linux-gnu/12" -Wno-deprecated-declarations)
set(CMAKE_EXE_LINKER_FLAGS_INIT -fuse-ld=lld-19)
set(CMAKE_SHARED_LINKER_FLAGS_INIT -fuse-ld=lld-19)

set(CMAKE_FIND_ROOT_PATH "${CMAKE_SYSROOT}")
set(CMAKE_FIND_ROOT_PATH_MODE_PROGRAM NEVER)
set(CMAKE_FIND_ROOT_PATH_MODE_LIBRARY ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_INCLUDE ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_PACKAGE ONLY)
set(CMAKE_LIBRARY_ARCHITECTURE aarch64-linux-gnu)

# How this machine runs what is built; arm64 needs no help. The processor signs pointers, as those of
# arm64e phones do; by a simpler sum than theirs, which costs less here and is checked just so.
if(NOT CMAKE_HOST_SYSTEM_PROCESSOR STREQUAL "aarch64")
  set(CMAKE_CROSSCOMPILING_EMULATOR
    qemu-aarch64-static -cpu max,pauth-impdef=on -L "${CMAKE_SYSROOT}")
endif()

# pkg-config reads the sysroot's descriptions, and nothing of this machine.
set(ENV{PKG_CONFIG_SYSROOT_DIR} "${CMAKE_SYSROOT}")
set(ENV{PKG_CONFIG_LIBDIR}
  "${CMAKE_SYSROOT}/usr/lib/aarch64-linux-gnu/pkgconfig:${CMAKE_SYSROOT}/usr/share/pkgconfig")
