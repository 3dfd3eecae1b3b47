# How the project's own code is compiled.

# Without optimisation, to parse the standard library's headers is a third of the work on a file: done
# once for all of them. Off unless it is asked for, since a file that forgets to include what it uses is
# then compiled, too.
option(QBTD_PARSED_HEADERS "Parse the headers of the standard library once for all files" OFF)

# qbtd_parse_headers(name HEADERS…): parsed with the options of this directory, for its libraries.
function(qbtd_parse_headers name)
  set(source ${CMAKE_CURRENT_BINARY_DIR}/${name}.cpp)
  file(WRITE ${source} "")
  add_library(${name} OBJECT ${source})
  list(TRANSFORM ARGN REPLACE "(.+)" "$<$<COMPILE_LANGUAGE:CXX>:<\\1$<ANGLE-R>>")
  target_precompile_headers(${name} PRIVATE ${ARGN})
endfunction()

if(QBTD_PARSED_HEADERS)
  qbtd_parse_headers(td_standard_headers
    algorithm array charconv cmath cstdint filesystem functional map memory optional set span string
    string_view utility variant vector)
endif()

# qbtd_own_code(target): its warnings are errors.
function(qbtd_own_code target)
  target_compile_options(${target} PRIVATE -Wall -Wextra -Wconversion -Werror)
  if(CMAKE_CXX_COMPILER_ID STREQUAL GNU AND CMAKE_CXX_COMPILER_VERSION VERSION_LESS 13)
    # Optimising, g++ 12 sees overlapping copies inside std::string and unset members inside
    # std::variant where there are none. The second compiler and the sanitizers look for both.
    target_compile_options(${target} PRIVATE -Wno-restrict -Wno-maybe-uninitialized)
  endif()
  get_target_property(type ${target} TYPE)
  if(QBTD_PARSED_HEADERS AND NOT type STREQUAL EXECUTABLE)  # whose code is of another kind
    target_precompile_headers(${target} REUSE_FROM td_standard_headers)
  endif()
endfunction()

# qbtd_compile_as_one(target FILES…): files of a target that read the same large headers of a library,
# which are parsed once for them. The static analysis reads each file by itself.
function(qbtd_compile_as_one target first)
  if(CMAKE_CXX_COMPILER_ID STREQUAL Clang)
    return()
  endif()
  set_target_properties(${target} PROPERTIES UNITY_BUILD ON UNITY_BUILD_MODE GROUP)
  set_source_files_properties(${first} ${ARGN} PROPERTIES UNITY_GROUP ${first})
endfunction()
