# What every program and module for Windows has in common.
enable_language(C)
list(PREPEND CMAKE_MODULE_PATH ${CMAKE_CURRENT_LIST_DIR}/windows)
# Windows 10: the first with windows that know the dots per inch of each monitor.
add_compile_definitions(UNICODE _UNICODE NOMINMAX STRICT WIN32_LEAN_AND_MEAN
  _WIN32_WINNT=0x0A00 WINVER=0x0A00)
# Nothing but libraries of the system is loaded at run time, so that one file is enough.
add_link_options(-static -static-libgcc -static-libstdc++)
