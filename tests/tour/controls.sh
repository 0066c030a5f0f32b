# Where the tour finds the controls, in points from the top left corner of the window. Sourced, not run.
# The pictures in build/tour show the same window.
#
# shellcheck shell=sh disable=SC2034

window_title="Tarnwell Settings"
dock_tab="264 58"
general_tab="336 58"
help_menu="290 14"
duration_field="517 129"
delay_short_end="463 190"
delay_middle="404 190"
scroll_to_expose_switch="549 369"
reset_button="488 619"

# Tab goes through the controls in the order in which they stand.
tabs_from_delay_slider_to_picker=3 # over the field and the stepper
