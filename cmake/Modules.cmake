# brindlex_module(NAME SOURCES... LINKS libraries...): a folder of src/ as a library that links only
# what it may include.
function(brindlex_module name)
  cmake_parse_arguments(ARG "" "" "SOURCES;LINKS" ${ARGN})
  add_library(brindlex_${name} STATIC ${ARG_SOURCES})
  target_link_libraries(brindlex_${name} PUBLIC ${ARG_LINKS} PRIVATE brindlex_options)
  target_include_directories(brindlex_${name} PUBLIC ${PROJECT_SOURCE_DIR}/src)
  if(NOT name STREQUAL text)
    brindlex_precompile(brindlex_${name} brindlex_system toolkit)
  endif()
endfunction()

# The sanitisers let an allocation fail that is larger than memory, as the system does.
set(BRINDLEX_TEST_ENVIRONMENT "QT_QPA_PLATFORM=offscreen;ASAN_OPTIONS=allocator_may_return_null=1;LSAN_OPTIONS=print_suppressions=0")

# brindlex_test(NAME SOURCES... LINKS libraries...): a folder of tests/ as one test program.
function(brindlex_test name)
  cmake_parse_arguments(ARG "" "" "SOURCES;LINKS" ${ARGN})
  add_executable(${name}_test ${ARG_SOURCES})
  target_link_libraries(${name}_test PRIVATE ${ARG_LINKS} GTest::gtest brindlex_options)
  target_include_directories(${name}_test PRIVATE ${PROJECT_SOURCE_DIR}/tests)
  if(NOT name STREQUAL text)
    brindlex_precompile(${name}_test brindlex_test_support tests)
  endif()
  add_test(NAME ${name} COMMAND ${name}_test)
  set_tests_properties(${name} PROPERTIES ENVIRONMENT "${BRINDLEX_TEST_ENVIRONMENT}")
endfunction()

# brindlex_precompile(TARGET OWNER NAME): compiles with the headers of cmake/NAME.h read once, for
# the target OWNER, and shared by the others.
function(brindlex_precompile target owner name)
  if(target STREQUAL owner)
    target_precompile_headers(${target} PRIVATE ${PROJECT_SOURCE_DIR}/cmake/${name}.h)
  else()
    target_precompile_headers(${target} REUSE_FROM ${owner})
  endif()
endfunction()
