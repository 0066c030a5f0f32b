# Everything that is compiled here links these two INTERFACE targets.

set(CMAKE_CXX_STANDARD 20)
set(CMAKE_CXX_STANDARD_REQUIRED ON)
set(CMAKE_CXX_EXTENSIONS OFF)
set(CMAKE_POSITION_INDEPENDENT_CODE ON)
set(CMAKE_EXPORT_COMPILE_COMMANDS ON)

add_library(tarnwell_options INTERFACE)
# Headers of standin are found beside src.
target_include_directories(tarnwell_options INTERFACE "${PROJECT_SOURCE_DIR}/src" "${PROJECT_SOURCE_DIR}")
# The same sources give the same binary, wherever they were checked out.
target_compile_options(tarnwell_options INTERFACE "-ffile-prefix-map=${PROJECT_SOURCE_DIR}=.")

add_library(tarnwell_warnings INTERFACE)
target_compile_options(
  tarnwell_warnings
  INTERFACE -Wall -Wextra -Wpedantic
            -Wconversion # a narrowed double is a wrong slider
            -Wshadow # a lambda's capture must not hide a member
            $<$<BOOL:${TARNWELL_WARNINGS_ARE_ERRORS}>:-Werror>
            # g++ 12 sees overlaps in inlined std::string concatenation where there are none.
            $<$<CXX_COMPILER_ID:GNU>:-Wno-restrict>
            # clang++ reports what std::stable_sort of GNU's library does inside.
            $<$<CXX_COMPILER_ID:Clang>:-Wno-deprecated-declarations>
            # Sources that are compiled by the dozen hide each other's names.
            $<$<AND:$<BOOL:${CMAKE_UNITY_BUILD}>,$<CXX_COMPILER_ID:Clang,AppleClang>>:-Wno-shadow>)

if(TARNWELL_SANITIZE)
  # Frame pointers make the reports readable; every finding ends the test.
  add_compile_options("-fsanitize=${TARNWELL_SANITIZE}" -fno-omit-frame-pointer -fno-sanitize-recover=all)
  # clang++ asks by a pipe whether an object can be read, and finds faults where a test leaves no descriptor.
  add_compile_options($<$<CXX_COMPILER_ID:Clang>:-fno-sanitize=vptr>)
  add_link_options("-fsanitize=${TARNWELL_SANITIZE}")
endif()
