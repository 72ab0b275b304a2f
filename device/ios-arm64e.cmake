# Toolchain for the slice of phones from the iPhone XS and XR on, whose processors check signed
# pointers: arm64e, iOS 12.0 and later. Debian's clang signs from 22 on; libc++'s headers are those of
# 19, as for the other slice: the packages of two libc++ exclude one another.
set(slice arm64e)
set(oldest_ios 12.0)
set(CMAKE_CXX_COMPILER clang++-22)
include("${CMAKE_CURRENT_LIST_DIR}/ios-slice.cmake")
# Return addresses are not signed: frames with signed ones have no compact description, and the
# unwinders of iOS 12 to 14 know no other that says so. What the system raises must pass through.
string(APPEND CMAKE_CXX_FLAGS_INIT " -fno-ptrauth-returns")
