# The binary interface, held against the one that was stored: layouts of types, order of virtual operations, exported
# symbols. `abi-check` compares, `abi-baseline` stores what stands now. Both need a library with all debug information
# (preset `abi`).
find_program(ABIDW_PROGRAM abidw)
find_program(ABIDIFF_PROGRAM abidiff)
mark_as_advanced(ABIDW_PROGRAM ABIDIFF_PROGRAM)
foreach(action check baseline)
  add_custom_target(abi-${action} DEPENDS tavronert64 VERBATIM USES_TERMINAL
    COMMAND ${CMAKE_COMMAND} -D action=${action} -D library=$<TARGET_FILE:tavronert64>
            -D headers=${PROJECT_SOURCE_DIR}/tavrone -D work=${PROJECT_BINARY_DIR} -D abidw=${ABIDW_PROGRAM}
            -D abidiff=${ABIDIFF_PROGRAM} -P ${PROJECT_SOURCE_DIR}/cmake/abi/abi.cmake)
endforeach()
