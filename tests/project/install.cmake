# Installs the build tree `build` into a folder of its own and lets a host build and run against it.
include(${CMAKE_CURRENT_LIST_DIR}/host.cmake)
set(work ${build}/tests/install)
file(REMOVE_RECURSE ${work})
file(MAKE_DIRECTORY ${work})

run(${CMAKE_COMMAND} --install ${build} --prefix ${work}/stage --config "${config}")
# Moved, since an installed tree must not remember where it was made.
file(RENAME ${work}/stage ${work}/moved)
check_bill_of_materials(${work}/moved)
serve_host(${work}/moved)
