# action=baseline stores the binary interface of `library`, action=check compares it with the stored one. The dump holds
# what the public headers in `headers` name, and no place of it, so that it changes with the interface alone.
if(NOT abidw OR NOT abidiff)
  message(FATAL_ERROR "This needs abidw and abidiff (Debian: abigail-tools)")
endif()
set(stored ${CMAKE_CURRENT_LIST_DIR}/tavronert64.abi.xz)
set(dump ${work}/tavronert64.abi)

execute_process(COMMAND readelf -SW ${library} OUTPUT_VARIABLE sections)
if(NOT sections MATCHES "[.]debug_info")
  message(FATAL_ERROR "${library} has no debug information: build it with -g (preset abi)")
endif()
execute_process(COMMAND ${abidw} --headers-dir ${headers} --drop-private-types --no-corpus-path --no-comp-dir-path
                        --no-show-locs --no-parameter-names --no-write-default-sizes --type-id-style hash
                        --suppressions ${CMAKE_CURRENT_LIST_DIR}/others.abignore --out-file ${dump} ${library}
                COMMAND_ERROR_IS_FATAL ANY)

if(action STREQUAL baseline)
  execute_process(COMMAND xz -9e INPUT_FILE ${dump} OUTPUT_FILE ${stored} COMMAND_ERROR_IS_FATAL ANY)
  message(STATUS "Stored ${stored}")
  return()
endif()

execute_process(COMMAND xz -dc ${stored} OUTPUT_FILE ${work}/stored.abi COMMAND_ERROR_IS_FATAL ANY)
# What is new breaks nobody; any other change may, also one that abidiff takes for harmless.
execute_process(COMMAND ${abidiff} --no-added-syms --no-show-locs ${work}/stored.abi ${dump}
                RESULT_VARIABLE result OUTPUT_VARIABLE report ERROR_VARIABLE report)

# abidiff says nothing of pure virtual operations that change places, since they are no symbols.
set(operations awk -f ${CMAKE_CURRENT_LIST_DIR}/virtual_operations.awk)
execute_process(COMMAND ${operations} ${work}/stored.abi COMMAND sort -u OUTPUT_FILE ${work}/stored.virtuals)
execute_process(COMMAND ${operations} ${work}/stored.virtuals ${dump} COMMAND sort -u
                COMMAND diff -U0 ${work}/stored.virtuals - COMMAND c++filt OUTPUT_VARIABLE moved)

if(NOT result EQUAL 0 OR NOT moved STREQUAL "")
  message("${report}\n${moved}")
  message(FATAL_ERROR "The binary interface is another than the stored one. Generated code that was built before may not "
                      "run on it. If that is meant: raise the soname where it breaks, and build abi-baseline.")
endif()
message(STATUS "The binary interface is the stored one, or adds to it")
