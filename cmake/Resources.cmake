# tarnwell_resources(TARGET NAME PREFIX ... FILES ...): files inside the binary. The later formats hold the time at which
# each was checked out.
function(tarnwell_resources target name)
  qt_add_resources(${target} ${name} ${ARGN} OPTIONS --format-version 1)
endfunction()
