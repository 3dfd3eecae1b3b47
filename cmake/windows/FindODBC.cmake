# The system's driver manager, by its name: CMake's own search would name a file, and link what comes
# behind it from DLLs.
if(NOT TARGET ODBC::ODBC)
  add_library(ODBC::ODBC INTERFACE IMPORTED GLOBAL)
  target_link_libraries(ODBC::ODBC INTERFACE odbc32)
endif()
set(ODBC_FOUND TRUE)
