# Targets that nobody builds unless asked, where Doxygen is installed:
#   docs               the pages of docs/ and of all that tavrone.h includes, in <build folder>/docs/html. Any warning of
#                      Doxygen's is an error.
#   docs-undocumented  lists what has no comment of its own or above it. Much of it says all by its name: a list to
#                      read, no error.
find_package(Doxygen QUIET)
if(NOT DOXYGEN_FOUND)
  return()
endif()

# What hosts and generated code include, and so what has pages.
set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS tavrone/tavrone.h)
file(STRINGS tavrone/tavrone.h TAVRONE_PUBLIC_HEADERS REGEX "^#include \"tavrone/")
list(TRANSFORM TAVRONE_PUBLIC_HEADERS REPLACE "^#include \"(.*)\"$" "\\1")
file(GLOB TAVRONE_PAGES RELATIVE ${PROJECT_SOURCE_DIR} CONFIGURE_DEPENDS *.md docs/*.md)

set(DOXYGEN_OUTPUT_DIRECTORY ${PROJECT_BINARY_DIR}/docs)
set(DOXYGEN_USE_MDFILE_AS_MAINPAGE README.md)
set(DOXYGEN_IMAGE_PATH docs)
set(DOXYGEN_INPUT_FILTER "awk -f cmake/doxygen_input.awk")
set(DOXYGEN_STRIP_FROM_PATH ${PROJECT_SOURCE_DIR})
set(DOXYGEN_EXTRACT_ALL YES)
set(DOXYGEN_JAVADOC_AUTOBRIEF YES)
set(DOXYGEN_SORT_MEMBER_DOCS NO)
set(DOXYGEN_HIDE_SCOPE_NAMES YES)
set(DOXYGEN_HAVE_DOT NO)
set(DOXYGEN_MACRO_EXPANSION YES)
set(DOXYGEN_SKIP_FUNCTION_MACROS NO)
# The vocabulary's constants stand at their macro.
set(DOXYGEN_PREDEFINED TAVRONE_API= TAVRONE_TEST_API= TAVRONE_COLD= "TAVRONE_EXCEPTION_VOCABULARY(X):=")
set(DOXYGEN_QUIET YES)
set(DOXYGEN_WARN_AS_ERROR FAIL_ON_WARNINGS)
doxygen_add_docs(docs tavrone/tavrone.h ${TAVRONE_PUBLIC_HEADERS} ${TAVRONE_PAGES})

# The same without a page for everything: then Doxygen tells what it finds no comment for.
file(WRITE ${PROJECT_BINARY_DIR}/Doxyfile.undocumented "@INCLUDE = \"${PROJECT_BINARY_DIR}/Doxyfile.docs\"
EXTRACT_ALL = NO
GENERATE_HTML = NO
GENERATE_XML = YES
WARN_AS_ERROR = NO
WARN_IF_UNDOCUMENTED = YES
")
add_custom_target(docs-undocumented WORKING_DIRECTORY ${PROJECT_SOURCE_DIR} VERBATIM
  COMMAND sh -c "$<TARGET_FILE:Doxygen::doxygen> '${PROJECT_BINARY_DIR}/Doxyfile.undocumented' 2>&1 | \
    grep 'is not documented' | grep -vE 'Member (~|operator=)|[(](variable|typedef|enumeration|enumvalue|friend)[)]' | sort -u")
