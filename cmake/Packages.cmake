# Every library that is not ours.
find_package(Qt6 6.4 REQUIRED COMPONENTS Core Gui Widgets Svg DBus)
find_package(ICU REQUIRED COMPONENTS i18n uc)
find_package(CLI11 REQUIRED)
find_package(PkgConfig REQUIRED)
pkg_check_modules(plist REQUIRED IMPORTED_TARGET libplist-2.0)
pkg_check_modules(xcb REQUIRED IMPORTED_TARGET xcb)
pkg_check_modules(systemd REQUIRED IMPORTED_TARGET libsystemd)

if(TARNWELL_BUILD_TESTS)
  find_package(GTest REQUIRED)
  find_package(Qt6 6.4 REQUIRED COMPONENTS Test)
  include(GoogleTest)
endif()

if(TARNWELL_BUILD_BENCHMARKS)
  find_package(benchmark REQUIRED)
endif()
