# Debian's cross compiler for 32-bit Windows.
set(CMAKE_SYSTEM_PROCESSOR x86)
set(triplet i686-w64-mingw32)
include(${CMAKE_CURRENT_LIST_DIR}/windows-toolchain.cmake)
