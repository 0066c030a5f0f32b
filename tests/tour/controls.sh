# Finds the controls of the settings window as a screen reader does, for a mouse and keys that are real. Sourced after
# stage.sh, not run. Expects $window, the window's number.
#
# shellcheck shell=sh disable=SC2034,SC2154

window_title="Tarnwell Settings"

# Tab goes through the controls in the order in which they stand.
tabs_from_delay_slider_to_picker=3 # over the field and the stepper

# place_of ROLE NAME [PERCENT]: its middle, or so much of the way across, from the top left corner of the window.
place_of() { "$tour/place-of" "$window_title" "$@" || fail "no $1 called $2"; }

# click ROLE NAME
click() {
  place=$(place_of "$@")
  # shellcheck disable=SC2086 # two coordinates
  xdotool mousemove --window "$window" $place click 1
}
