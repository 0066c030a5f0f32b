# Tomlplusplus::Headers. The headers alone: the library that comes with them is compiled to throw.
find_path(TOMLPLUSPLUS_INCLUDE_DIR toml++/toml.h)
include(FindPackageHandleStandardArgs)
find_package_handle_standard_args(Tomlplusplus REQUIRED_VARS TOMLPLUSPLUS_INCLUDE_DIR)
if(Tomlplusplus_FOUND AND NOT TARGET Tomlplusplus::Headers)
  add_library(Tomlplusplus::Headers INTERFACE IMPORTED GLOBAL)
  set_target_properties(Tomlplusplus::Headers PROPERTIES INTERFACE_INCLUDE_DIRECTORIES "${TOMLPLUSPLUS_INCLUDE_DIR}")
endif()
