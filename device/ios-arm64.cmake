# Toolchain for the slice of phones up to the iPhone X: arm64, iOS 11.0 and later, from Debian's clang,
# lld and libc++ alone.
set(slice arm64)
set(oldest_ios 11.0)
set(CMAKE_CXX_COMPILER clang++-19)
include("${CMAKE_CURRENT_LIST_DIR}/ios-slice.cmake")
