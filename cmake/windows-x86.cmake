# Debian's cross compiler for 32-bit Windows.
set(CMAKE_SYSTEM_PROCESSOR x86)
set(triplet i686-w64-mingw32)
# Numbers come out as in 64 bits: the older instructions carry more digits than a variable has, as
# many as the program that loads the component has chosen, so that a place could be rounded otherwise.
set(CMAKE_C_FLAGS_INIT "-msse2 -mfpmath=sse")
set(CMAKE_CXX_FLAGS_INIT "-msse2 -mfpmath=sse")
include(${CMAKE_CURRENT_LIST_DIR}/windows-toolchain.cmake)
