# brindlex_module(NAME SOURCES... LINKS libraries...): a folder of src/ as a library that links only
# what it may include.
function(brindlex_module name)
  cmake_parse_arguments(ARG "" "" "SOURCES;LINKS" ${ARGN})
  add_library(brindlex_${name} STATIC ${ARG_SOURCES})
  target_link_libraries(brindlex_${name} PUBLIC ${ARG_LINKS} PRIVATE brindlex_options)
  target_include_directories(brindlex_${name} PUBLIC ${PROJECT_SOURCE_DIR}/src)
endfunction()

# brindlex_test(NAME SOURCES... LINKS libraries...): a folder of tests/ as one test program.
function(brindlex_test name)
  cmake_parse_arguments(ARG "" "" "SOURCES;LINKS" ${ARGN})
  add_executable(${name}_test ${ARG_SOURCES})
  target_link_libraries(${name}_test PRIVATE ${ARG_LINKS} GTest::gtest brindlex_options)
  target_include_directories(${name}_test PRIVATE ${PROJECT_SOURCE_DIR}/tests)
  add_test(NAME ${name} COMMAND ${name}_test)
  set_tests_properties(${name} PROPERTIES ENVIRONMENT "QT_QPA_PLATFORM=offscreen")
endfunction()
