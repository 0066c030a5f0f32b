# The headers that most sources read anyway are read once for each kind of target. A source still includes what it uses:
# the linter compiles each by itself, without these.
set(standard_headers
    <algorithm>
    <array>
    <filesystem>
    <functional>
    <map>
    <memory>
    <optional>
    <string>
    <string_view>
    <tuple>
    <utility>
    <variant>
    <vector>)
set(toolkit_headers
    ${standard_headers}
    <QtDBus/QDBusConnection>
    <QtDBus/QDBusMessage>
    <QtGui/QKeyEvent>
    <QtGui/QPainter>
    <QtGui/QPainterPath>
    <QtWidgets/QApplication>
    <QtWidgets/QLabel>
    <QtWidgets/QMenu>)

# precompiled_headers(NAME KIND HEADERS ... LINKS ...): for targets of the same kind to reuse, LIBRARY or EXECUTABLE; the
# two are compiled to different kinds of code.
function(precompiled_headers name kind)
  cmake_parse_arguments(PARSE_ARGV 2 arg "" "" "HEADERS;LINKS")
  set(source "${CMAKE_BINARY_DIR}/${name}.cpp")
  file(CONFIGURE OUTPUT "${source}" CONTENT "int main() { return 0; }\n")
  if(kind STREQUAL "LIBRARY")
    add_library(${name} OBJECT "${source}")
  else()
    add_executable(${name} "${source}")
  endif()
  target_link_libraries(${name} PRIVATE tarnwell_options tarnwell_warnings ${arg_LINKS})
  target_precompile_headers(${name} PRIVATE ${arg_HEADERS})
  set_target_properties(${name} PROPERTIES UNITY_BUILD OFF)
endfunction()

precompiled_headers(tarnwell_precompiled LIBRARY HEADERS ${standard_headers})
if(TARGET Qt6::Widgets)
  precompiled_headers(tarnwell_precompiled_qt LIBRARY HEADERS ${toolkit_headers} LINKS Qt6::Widgets Qt6::DBus)
endif()
if(TARNWELL_BUILD_TESTS)
  precompiled_headers(tarnwell_precompiled_test EXECUTABLE HEADERS ${standard_headers} <gtest/gtest.h> LINKS GTest::gtest)
  if(TARGET Qt6::Widgets)
    precompiled_headers(tarnwell_precompiled_qt_test EXECUTABLE HEADERS ${toolkit_headers} <gtest/gtest.h>
                        LINKS Qt6::Widgets Qt6::DBus GTest::gtest)
  endif()
endif()
