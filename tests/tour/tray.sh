# A tray of the older kind in a corner of the stage. Sourced, not run, after stage.sh.
#
# shellcheck shell=sh disable=SC2154

open_tray() { start trayer --edge top --align right --widthtype request --height 24; }

tray_has_icon() {
  tray=$(xdotool search --onlyvisible --class '^trayer$' | head -n 1)
  [ -n "$tray" ] || return 1
  eval "$(xdotool getwindowgeometry --shell "$tray")"
  # An empty tray is a point wide, and a new one comes to its corner a moment after it has grown.
  [ "$WIDTH" -ge 16 ] && [ "$((X + WIDTH))" -eq "$stage_width" ]
}

count_windows() { xdotool search --onlyvisible --class '^tarnwell$' | wc -l; }

has_more_windows() { [ "$(count_windows)" -gt "$1" ]; }

# A menu goes when another window loses the keyboard late, as it may on a busy machine; one then clicks again.
clicks_menu_open() {
  tray_has_icon || return 1
  xdotool mousemove "$((X + WIDTH / 2))" "$((Y + HEIGHT / 2))" click "$1"
  for _ in $(seq 60); do
    has_more_windows "$windows" && return
    sleep 0.05
  done
  return 1
}

# Presses a button of the mouse over the tray's icon.
open_tray_menu() {
  wait_for 20 "the icon in the tray" tray_has_icon
  windows=$(count_windows)
  wait_for 20 "the menu of the tray's icon" clicks_menu_open "$1"
}

# Chooses the entry that is so many steps down in the open menu.
choose_in_tray() {
  for _ in $(seq "$1"); do xdotool key Down; done
  xdotool key Return
}
