# The warnings that the project's own code is held to.
function(qbtd_own_code target)
  target_compile_options(${target} PRIVATE -Wall -Wextra -Wconversion -Werror)
  if(CMAKE_CXX_COMPILER_ID STREQUAL GNU AND CMAKE_CXX_COMPILER_VERSION VERSION_LESS 13)
    # Optimising, g++ 12 sees copies that overlap inside std::string where there are none.
    target_compile_options(${target} PRIVATE -Wno-restrict)
  endif()
endfunction()
