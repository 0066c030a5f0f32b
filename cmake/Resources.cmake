# tarnwell_resources(TARGET NAME PREFIX ... FILES ...): files inside the binary, where they are read at once: packages are
# compressed anyway. The later formats hold the time at which each was checked out.
function(tarnwell_resources target name)
  qt_add_resources(${target} ${name} ${ARGN} OPTIONS --format-version 1 --no-compress)
endfunction()

# tarnwell_drawings(TARGET NAME PREFIX FILE...): SVG drawings inside the binary as pictures that `QPainter` plays, each
# under its name with the ending .picture.
function(tarnwell_drawings target name prefix)
  foreach(drawing IN LISTS ARGN)
    get_filename_component(file "${drawing}" ABSOLUTE)
    get_filename_component(stem "${drawing}" NAME_WLE)
    set(picture "${CMAKE_CURRENT_BINARY_DIR}/${name}/${stem}.picture")
    add_custom_command(
      OUTPUT "${picture}"
      COMMAND tarnwell_record_drawing picture "${file}" "${picture}"
      DEPENDS tarnwell_record_drawing "${file}"
      VERBATIM)
    list(APPEND pictures "${picture}")
  endforeach()
  file(MAKE_DIRECTORY "${CMAKE_CURRENT_BINARY_DIR}/${name}")
  tarnwell_resources(${target} ${name} PREFIX ${prefix} BASE "${CMAKE_CURRENT_BINARY_DIR}/${name}" FILES ${pictures})
endfunction()
