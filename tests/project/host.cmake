# Included by the tests of what a host gets: runs commands in the folder `work`, and lets tests/consumer build and run
# against what stands below a prefix.

function(run)
  execute_process(COMMAND ${ARGN} RESULT_VARIABLE result OUTPUT_VARIABLE output ERROR_VARIABLE output
                  WORKING_DIRECTORY ${work})
  if(NOT result EQUAL 0)
    list(JOIN ARGN " " command)
    message(FATAL_ERROR "${command}\n${output}\nended with ${result}")
  endif()
  string(STRIP "${output}" output)
  set(output "${output}" PARENT_SCOPE)
endfunction()

function(run_host program)
  run(${program})
  if(NOT output STREQUAL "${version} 8=FIX")
    message(FATAL_ERROR "${program} wrote '${output}'")
  endif()
endfunction()

function(serve_host prefix)
  run(${CMAKE_COMMAND} -S ${CMAKE_CURRENT_FUNCTION_LIST_DIR}/../consumer -B ${work}/consumer -G ${generator}
      -DCMAKE_BUILD_TYPE=${config} -DCMAKE_CXX_COMPILER=${compiler} -DCMAKE_CXX_FLAGS=${flags}
      -DCMAKE_EXE_LINKER_FLAGS=${linkflags} -DCMAKE_PREFIX_PATH=${prefix} -Dversion=${version})
  run(${CMAKE_COMMAND} --build ${work}/consumer)
  run_host(${work}/consumer/consumer)

  if(NOT pkgconfig)
    message(STATUS "pkg-config is not installed: its half is left out")
    return()
  endif()
  set(ENV{PKG_CONFIG_PATH} ${prefix}/${libdir}/pkgconfig)
  run(${pkgconfig} --modversion tavronert64)
  if(NOT output STREQUAL version)
    message(FATAL_ERROR "tavronert64.pc tells version '${output}' instead of ${version}")
  endif()
  run(${pkgconfig} --cflags --libs tavronert64)
  separate_arguments(package UNIX_COMMAND "${output}")
  separate_arguments(flags UNIX_COMMAND "${flags} ${linkflags}")
  run(${compiler} -std=c++20 ${flags} ${CMAKE_CURRENT_FUNCTION_LIST_DIR}/../consumer/main.cpp -o host ${package}
      -Wl,-rpath,${prefix}/${libdir})
  run_host(${work}/host)
endfunction()

# The bill of materials below the prefix names the library that stands there.
function(check_bill_of_materials prefix)
  file(GLOB bill ${prefix}/share/doc/*/tavronert64.spdx.json)
  file(READ "${bill}" text)
  string(JSON package GET "${text}" packages 0 versionInfo)
  string(JSON file GET "${text}" files 0 fileName)
  string(JSON expected GET "${text}" files 0 checksums 1 checksumValue)
  string(JSON dependencies LENGTH "${text}" relationships)
  file(SHA256 ${prefix}/${file} found)
  if(NOT package STREQUAL version OR NOT expected STREQUAL found OR NOT dependencies EQUAL 4)
    message(FATAL_ERROR "${bill} does not tell of version ${version} with hash ${found}:\n${text}")
  endif()
endfunction()
