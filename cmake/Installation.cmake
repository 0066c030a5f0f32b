# Where the parts of an installation lie. It has two components: `cli`, which needs no toolkit, and `window`, which needs
# the other one.
include(GNUInstallDirs)
set(TARNWELL_HELPERS "${CMAKE_INSTALL_LIBEXECDIR}/tarnwell")
