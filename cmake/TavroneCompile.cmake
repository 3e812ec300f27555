# What every target of this project is compiled with, whatever preset or host project builds it.
function(tavrone_compile_options target)
  target_compile_options(${target} PRIVATE -Wall -Wextra -Wpedantic -Wshadow -Wconversion
                                           -ffp-contract=off -fno-semantic-interposition)
  if(TAVRONE_WARNINGS_AS_ERRORS)
    target_compile_options(${target} PRIVATE -Werror)
  endif()
  set_target_properties(${target} PROPERTIES CXX_EXTENSIONS OFF POSITION_INDEPENDENT_CODE ON)
endfunction()
