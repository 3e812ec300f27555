# Installs the build tree `build` into a folder of its own and lets tests/consumer build and run against it.
set(work ${build}/tests/install)
set(stage ${work}/stage)
file(REMOVE_RECURSE ${work})
file(MAKE_DIRECTORY ${work})

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

run(${CMAKE_COMMAND} --install ${build} --prefix ${stage} --config "${config}")
# Moved, since an installed tree must not remember where it was made.
file(RENAME ${stage} ${work}/moved)
set(stage ${work}/moved)

run(${CMAKE_COMMAND} -S ${CMAKE_CURRENT_LIST_DIR}/../consumer -B ${work}/consumer -G ${generator}
    -DCMAKE_BUILD_TYPE=${config} -DCMAKE_CXX_COMPILER=${compiler} -DCMAKE_CXX_FLAGS=${flags}
    -DCMAKE_EXE_LINKER_FLAGS=${linkflags} -DCMAKE_PREFIX_PATH=${stage} -Dversion=${version})
run(${CMAKE_COMMAND} --build ${work}/consumer)
run_host(${work}/consumer/consumer)

if(NOT pkgconfig)
  message(STATUS "pkg-config is not installed: its half is left out")
  return()
endif()
set(ENV{PKG_CONFIG_PATH} ${stage}/${libdir}/pkgconfig)
run(${pkgconfig} --modversion tavronert64)
if(NOT output STREQUAL version)
  message(FATAL_ERROR "tavronert64.pc tells version '${output}' instead of ${version}")
endif()
run(${pkgconfig} --cflags --libs tavronert64)
separate_arguments(package UNIX_COMMAND "${output}")
separate_arguments(flags UNIX_COMMAND "${flags} ${linkflags}")
run(${compiler} -std=c++20 ${flags} ${CMAKE_CURRENT_LIST_DIR}/../consumer/main.cpp -o host ${package}
    -Wl,-rpath,${stage}/${libdir})
run_host(${work}/host)
