# The warnings that the project's own code is held to.
function(qbtd_own_code target)
  target_compile_options(${target} PRIVATE -Wall -Wextra -Wconversion -Werror)
  if(CMAKE_CXX_COMPILER_ID STREQUAL GNU AND CMAKE_CXX_COMPILER_VERSION VERSION_LESS 13)
    # Optimising, g++ 12 sees overlapping copies inside std::string and unset members inside
    # std::variant where there are none. The second compiler and the sanitizers look for both.
    target_compile_options(${target} PRIVATE -Wno-restrict -Wno-maybe-uninitialized)
  endif()
endfunction()
