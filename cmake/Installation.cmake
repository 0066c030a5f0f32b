# Where the parts of an installation lie. It has two components: `cli`, which needs no toolkit, and `window`, which needs
# the other one.
include(GNUInstallDirs)
set(TARNWELL_HELPERS "${CMAKE_INSTALL_LIBEXECDIR}/tarnwell")
# And before they are installed; a bundle is built as it ships.
if("macos" IN_LIST TARNWELL_HOSTS)
  set(TARNWELL_BUILT_HELPERS "${CMAKE_BINARY_DIR}/${PROJECT_NAME}.app/Contents/Helpers")
else()
  set(TARNWELL_BUILT_HELPERS "${CMAKE_BINARY_DIR}/libexec")
endif()
