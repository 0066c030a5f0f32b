# reuse_precompiled_headers(TARGET KIND LINK...): those of the toolkit for what links it, the standard ones for the rest.
function(reuse_precompiled_headers target kind)
  if("${ARGN}" MATCHES "Qt6|host_qt")
    # The compiler takes them only with the definitions of all that they were read with.
    target_link_libraries(${target} PRIVATE Qt6::Widgets Qt6::DBus)
    target_precompile_headers(${target} REUSE_FROM tarnwell_precompiled_qt${kind})
  else()
    target_precompile_headers(${target} REUSE_FROM tarnwell_precompiled${kind})
  endif()
endfunction()

# What differs between systems stands in files of each behind one header: PipeLinux.cpp, PipeMac.cpp.
if(CMAKE_SYSTEM_NAME STREQUAL "Linux")
  set(other_system Mac)
elseif(CMAKE_SYSTEM_NAME STREQUAL "Darwin")
  set(other_system Linux)
else()
  message(FATAL_ERROR "nothing calls ${CMAKE_SYSTEM_NAME} yet")
endif()

# tarnwell_library(NAME [FOLDER FOLDER] LINKS ... PRIVATE_LINKS ...): all sources of one folder are one static library,
# but for those of another system and those where a program begins; headers alone are a target to link as well. FOLDER is
# a part of the room and taken with what is below it.
function(tarnwell_library name)
  cmake_parse_arguments(PARSE_ARGV 1 arg "" "FOLDER" "LINKS;PRIVATE_LINKS")
  set(folder "${CMAKE_CURRENT_SOURCE_DIR}/${arg_FOLDER}")
  if(arg_FOLDER)
    file(GLOB_RECURSE sources CONFIGURE_DEPENDS "${folder}/*.cpp" "${folder}/*.mm")
  else()
    file(GLOB sources CONFIGURE_DEPENDS "${folder}/*.cpp" "${folder}/*.mm")
  endif()
  list(FILTER sources EXCLUDE REGEX "((/m|M)ain|${other_system})\\.(cpp|mm)$")
  if(NOT sources)
    add_library(tarnwell_${name} INTERFACE)
    target_link_libraries(tarnwell_${name} INTERFACE ${arg_LINKS})
    return()
  endif()
  add_library(tarnwell_${name} STATIC ${sources})
  target_link_libraries(tarnwell_${name} PUBLIC tarnwell_options ${arg_LINKS} PRIVATE tarnwell_warnings
                                                                                   ${arg_PRIVATE_LINKS})
  reuse_precompiled_headers(tarnwell_${name} "" ${arg_LINKS})
endfunction()

# tarnwell_test(NAME [WHOLE | WAITS] SOURCES ... LINKS ...): one test program. Each of its tests is a process of its own,
# unless WHOLE: for tests that leave the process as they found it, since starting it takes longer than most tests. WAITS:
# for tests that wait for other programs or for time; they start first.
function(tarnwell_test name)
  cmake_parse_arguments(PARSE_ARGV 1 arg "WHOLE;WAITS" "" "SOURCES;LINKS;ENVIRONMENT")
  set(cost 0)
  if(arg_WAITS)
    set(cost 20)
  endif()
  list(FILTER arg_SOURCES EXCLUDE REGEX "${other_system}\\.cpp$")
  add_executable(tarnwell_${name} ${arg_SOURCES})
  target_include_directories(tarnwell_${name} PRIVATE "${PROJECT_SOURCE_DIR}/tests")
  target_link_libraries(tarnwell_${name} PRIVATE tarnwell_options tarnwell_warnings ${arg_LINKS} GTest::gtest_main)
  reuse_precompiled_headers(tarnwell_${name} "_test" ${arg_LINKS})
  if(arg_WHOLE)
    add_test(NAME ${name} COMMAND tarnwell_${name})
    # What takes longest starts first.
    set_tests_properties(${name} PROPERTIES TIMEOUT 120 COST 5 ENVIRONMENT "${arg_ENVIRONMENT}")
  else()
    gtest_discover_tests(tarnwell_${name} TEST_PREFIX "${name}." DISCOVERY_MODE PRE_TEST
                         PROPERTIES TIMEOUT 120 COST ${cost} ENVIRONMENT "${arg_ENVIRONMENT}")
  endif()
endfunction()
