# The warnings that the project's own code is held to.
function(qbtd_own_code target)
  target_compile_options(${target} PRIVATE -Wall -Wextra -Wconversion -Werror)
endfunction()
