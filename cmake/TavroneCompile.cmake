# What every target of this project is compiled with, whatever preset or host project builds it.
function(tavrone_compile_options target)
  # No contracted or value-changing arithmetic: the text of a number is the same on every machine. A call inside the
  # library binds to the library, so that the compiler may inline it.
  target_compile_options(${target} PRIVATE -Wall -Wextra -Wpedantic -Wshadow -Wconversion
                                           -ffp-contract=off -fno-semantic-interposition)
  # The baseline that every 64-bit machine has, also when the surrounding build asks for more: wider instructions are
  # chosen at run time, in the code.
  if(CMAKE_SYSTEM_PROCESSOR MATCHES "^(x86_64|AMD64|amd64)$")
    target_compile_options(${target} PRIVATE -march=x86-64 -mtune=generic)
  endif()
  if(TAVRONE_WARNINGS_AS_ERRORS)
    target_compile_options(${target} PRIVATE -Werror)
  endif()
  set_target_properties(${target} PROPERTIES CXX_EXTENSIONS OFF POSITION_INDEPENDENT_CODE ON
                                             CXX_VISIBILITY_PRESET hidden VISIBILITY_INLINES_HIDDEN ON)
endfunction()
