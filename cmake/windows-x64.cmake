# Debian's cross compiler for 64-bit Windows.
set(CMAKE_SYSTEM_PROCESSOR AMD64)
set(triplet x86_64-w64-mingw32)
include(${CMAKE_CURRENT_LIST_DIR}/windows-toolchain.cmake)
