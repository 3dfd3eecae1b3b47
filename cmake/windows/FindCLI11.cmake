include(${CMAKE_CURRENT_LIST_DIR}/BuiltIn.cmake)
qbtd_header_library(CLI11::CLI11 CLI)
set(CLI11_FOUND TRUE)
