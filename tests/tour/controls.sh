# Where the tour finds the controls, in points from the top left corner of the window. Sourced, not run.
# The pictures in build/tour show the same window.
#
# shellcheck shell=sh disable=SC2034

window_title=Tarnwell
delay_short_end="463 102"
delay_middle="404 102"
scroll_to_expose_switch="549 281"
reset_button="488 531"

# Tab goes through the controls in the order in which they stand.
tabs_from_delay_slider_to_picker=3 # over the field and the stepper
