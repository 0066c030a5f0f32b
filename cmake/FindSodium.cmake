# Sodium::Sodium, for systems with pkg-config and for those without.
find_path(SODIUM_INCLUDE_DIR sodium.h)
# A bundle takes it along.
if(APPLE)
  set(names libsodium.a)
endif()
find_library(SODIUM_LIBRARY NAMES ${names} sodium)
# One for another architecture, or for one of several alone, is none.
if(SODIUM_LIBRARY AND SODIUM_INCLUDE_DIR)
  block()
    include(CheckCXXSourceCompiles)
    set(CMAKE_REQUIRED_INCLUDES "${SODIUM_INCLUDE_DIR}")
    set(CMAKE_REQUIRED_LIBRARIES "${SODIUM_LIBRARY}")
    check_cxx_source_compiles("#include <sodium.h>\nint main() { return sodium_init(); }" SODIUM_LINKS)
  endblock()
endif()
include(FindPackageHandleStandardArgs)
find_package_handle_standard_args(Sodium REQUIRED_VARS SODIUM_LIBRARY SODIUM_INCLUDE_DIR SODIUM_LINKS)
if(Sodium_FOUND AND NOT TARGET Sodium::Sodium)
  add_library(Sodium::Sodium UNKNOWN IMPORTED GLOBAL)
  set_target_properties(Sodium::Sodium PROPERTIES IMPORTED_LOCATION "${SODIUM_LIBRARY}" INTERFACE_INCLUDE_DIRECTORIES
                                                                                        "${SODIUM_INCLUDE_DIR}")
endif()
