# What is built here, to a system; what people read of it besides is in src/app/Product.cpp.
set(TARNWELL_IDENTIFIER example.tarnwell.Tarnwell)
set(TARNWELL_COPYRIGHT "© 2026 The Tarnwell developers")
set(TARNWELL_ICON "${PROJECT_SOURCE_DIR}/packaging/icons/tarnwell.svg")

# The host whose pages Help, feedback and donations open.
set(TARNWELL_WEB_HOST "tarnwell.example" CACHE STRING "Host of the product's web pages, with a port where it needs one")
if(NOT TARNWELL_WEB_HOST MATCHES "^[A-Za-z0-9.-]+(:[0-9]+)?$")
  message(FATAL_ERROR "TARNWELL_WEB_HOST is \"${TARNWELL_WEB_HOST}\"; it takes a host alone, such as my.site or my.site:8080")
endif()
