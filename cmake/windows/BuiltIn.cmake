# How the build for Windows gets what the system doesn't have: compiled in from Debian's sources,
# which scripts/build-windows.sh unpacks, or a library of headers alone.
set(QBTD_BUILT_IN_SOURCES ${PROJECT_SOURCE_DIR}/build/windows-sources CACHE PATH
  "Where scripts/build-windows.sh has unpacked the sources of SQLite and zint")

# A library of headers alone lies in the build machine's folder, whose other headers are no good here.
function(qbtd_header_library target folder)
  set(headers ${PROJECT_BINARY_DIR}/built-in/include)
  if(NOT TARGET ${target})
    if(NOT EXISTS /usr/include/${folder})
      message(FATAL_ERROR "/usr/include/${folder} is missing: run scripts/install-packages.sh")
    endif()
    file(MAKE_DIRECTORY ${headers})
    file(CREATE_LINK /usr/include/${folder} ${headers}/${folder} SYMBOLIC)
    add_library(${target} INTERFACE IMPORTED GLOBAL)
    target_include_directories(${target} INTERFACE ${headers})
  endif()
endfunction()

function(qbtd_require_source file)
  if(NOT EXISTS ${file})
    message(FATAL_ERROR "${file} is missing: run scripts/build-windows.sh")
  endif()
endfunction()
