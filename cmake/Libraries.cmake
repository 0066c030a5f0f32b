# tarnwell_library(NAME SOURCES ... LINKS ...): one folder, one static library, one namespace.
function(tarnwell_library name)
  cmake_parse_arguments(PARSE_ARGV 1 arg "" "" "SOURCES;LINKS;PRIVATE_LINKS")
  add_library(tarnwell_${name} STATIC ${arg_SOURCES})
  target_link_libraries(tarnwell_${name} PUBLIC tarnwell_options ${arg_LINKS} PRIVATE tarnwell_warnings
                                                                                   ${arg_PRIVATE_LINKS})
endfunction()

# tarnwell_test(NAME SOURCES ... LINKS ...): one test program; each of its tests is listed by name.
function(tarnwell_test name)
  cmake_parse_arguments(PARSE_ARGV 1 arg "" "" "SOURCES;LINKS;ENVIRONMENT")
  add_executable(tarnwell_${name} ${arg_SOURCES})
  target_include_directories(tarnwell_${name} PRIVATE "${PROJECT_SOURCE_DIR}/tests")
  target_link_libraries(tarnwell_${name} PRIVATE tarnwell_options tarnwell_warnings ${arg_LINKS} GTest::gtest_main)
  gtest_discover_tests(tarnwell_${name} TEST_PREFIX "${name}." DISCOVERY_MODE PRE_TEST
                       PROPERTIES TIMEOUT 120 ENVIRONMENT "${arg_ENVIRONMENT}")
endfunction()
