# What more than one folder wants of other libraries. Each asks for the rest itself, and may be linked from anywhere.
set(CMAKE_FIND_PACKAGE_TARGETS_GLOBAL ON)

if("qt" IN_LIST TARNWELL_HOSTS OR (TARNWELL_BUILD_STANDINS AND TARNWELL_BUILD_DOCK_UI) OR TARNWELL_BUILD_BENCHMARKS)
  find_package(Qt6 6.4 REQUIRED COMPONENTS Core Gui Widgets Svg DBus)
endif()

if(TARNWELL_BUILD_TESTS)
  find_package(GTest REQUIRED)
  include(GoogleTest)
endif()
