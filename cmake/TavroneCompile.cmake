# What every target of this project is compiled with, whatever preset or host project builds it.
include(CheckCXXCompilerFlag)
include(CheckPIESupported)
check_cxx_compiler_flag(-fstack-clash-protection TAVRONE_HAS_STACK_CLASH_PROTECTION)
check_cxx_compiler_flag(-fcf-protection TAVRONE_HAS_CF_PROTECTION)

# The configurations that are hardened: those that optimise, which _FORTIFY_SOURCE needs, without a sanitizer, which has
# checks of its own.
set(TAVRONE_HARDENED_CONFIGS)
if(TAVRONE_HARDENED AND CMAKE_SYSTEM_NAME STREQUAL "Linux")
  check_pie_supported()
  foreach(config IN LISTS CMAKE_BUILD_TYPE CMAKE_CONFIGURATION_TYPES)
    string(TOUPPER ${config} suffix)
    set(flags "${CMAKE_CXX_FLAGS} ${CMAKE_CXX_FLAGS_${suffix}}")
    if(flags MATCHES "-O([123sgz]|fast)" AND NOT flags MATCHES "-O0|-fsanitize")
      list(APPEND TAVRONE_HARDENED_CONFIGS ${config})
    endif()
  endforeach()
endif()

# What keeps a fault from becoming an attack: checked stack frames and copies, checked targets of jumps, nothing writable
# after start that need not be.
function(tavrone_harden target)
  if(NOT TAVRONE_HARDENED_CONFIGS)
    return()
  endif()
  list(JOIN TAVRONE_HARDENED_CONFIGS "," configs)
  set(compile -fstack-protector-strong)
  if(TAVRONE_HAS_STACK_CLASH_PROTECTION)
    list(APPEND compile -fstack-clash-protection)
  endif()
  if(TAVRONE_HAS_CF_PROTECTION)
    list(APPEND compile -fcf-protection)
  endif()
  # A level that the surrounding build chose stands.
  if(NOT CMAKE_CXX_FLAGS MATCHES "_FORTIFY_SOURCE")
    list(APPEND compile -U_FORTIFY_SOURCE -D_FORTIFY_SOURCE=2)
  endif()
  set(link LINKER:-z,relro LINKER:-z,now LINKER:-z,noexecstack)
  target_compile_options(${target} PRIVATE "$<$<CONFIG:${configs}>:${compile}>")
  target_link_options(${target} PRIVATE "$<$<CONFIG:${configs}>:${link}>")
endfunction()

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
  tavrone_harden(${target})
  # Debug information names files from the root of the source, so that the same build in another folder is the same to
  # the bit. A build for the debugger keeps the names by which it finds the sources.
  if(CMAKE_CXX_COMPILER_ID MATCHES "GNU|Clang")
    set(maps -ffile-prefix-map=${PROJECT_SOURCE_DIR}=. -ffile-prefix-map=${PROJECT_BINARY_DIR}=.)
    target_compile_options(${target} PRIVATE "$<$<CONFIG:Release,RelWithDebInfo,MinSizeRel>:${maps}>")
  endif()
  if(TAVRONE_WARNINGS_AS_ERRORS)
    target_compile_options(${target} PRIVATE -Werror)
  endif()
  set_target_properties(${target} PROPERTIES CXX_EXTENSIONS OFF POSITION_INDEPENDENT_CODE ON
                                             CXX_VISIBILITY_PRESET hidden VISIBILITY_INLINES_HIDDEN ON)
endfunction()
