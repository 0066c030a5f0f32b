# What the tour does with the stand-in Dock: photographs what the settings do to it. Sourced, not run.
# Expects $built, $folder and $dock_log, and what stage.sh gives.
#
# shellcheck shell=sh disable=SC2154

# In points of the screen: eight applications, a separator, a minimized window and the trash, at its lower edge.
notebook_icon="512 858"
minimized_window="858 858"
minimize_button="314 18" # from the top left corner of a document
effects="genie scale suck"
# With Shift held, an effect takes eight times as long as usual, 3.36 seconds.
quarter_of_effect=0.84

point_at() {
  # shellcheck disable=SC2086 # two coordinates
  xdotool mousemove $1
}

shows_window() { xdotool search --onlyvisible --name "^$1\$" >/dev/null 2>&1; }

shows_no_window() { ! shows_window "$1"; }

reveal_dock() {
  point_at "640 899"
  wait_for 20 "the Dock to come" shows_window Dock
}

# Away from the lower edge and from every window of the tour.
leave_dock() {
  point_at "1270 600"
  wait_for 20 "the Dock to hide" shows_no_window Dock
}

last_dock() { tail -n 1 "$dock_log" | sed 's/^[^[]*\[\([0-9]*\)\].*/\1/'; }

# with_setting KEY TYPE VALUE: only this Dock is ended, as any on the machine would be by its name.
with_setting() {
  "$built/libexec/defaults" write com.apple.dock "$@"
  docks=$(count_lines "$dock_log")
  kill "$(last_dock)"
  wait_for 20 "the Dock to start again" has_lines "$dock_log" "$((docks + 1))"
}

open_documents() {
  reveal_dock
  point_at "$notebook_icon"
  xdotool click 1
  wait_for 20 "a document" shows_window Ideas
}

photograph_part() { import -window root -crop 900x900+300+0 +repage "$folder/effect-$1.png"; }

# One picture at each quarter of the way into the Dock.
photograph_effect() {
  with_setting mineffect -string "$1"
  wait_for 20 "the document" shows_window Ideas
  ideas=$(xdotool search --onlyvisible --name '^Ideas$')
  xdotool windowraise "$ideas"
  # shellcheck disable=SC2086 # two coordinates
  xdotool mousemove --window "$ideas" $minimize_button keydown Shift_L click 1 keyup Shift_L
  wait_for 2 "the effect" shows_window Minimizing
  photographs=
  for moment in 1 2 3; do
    sleep "$quarter_of_effect"
    # Taking one takes a while.
    photograph_part "$1-$moment" &
    photographs="$photographs $!"
  done
  # shellcheck disable=SC2086 # several processes
  wait $photographs
  wait_for 20 "the effect to end" shows_no_window Minimizing
  bring_back
}

bring_back() {
  reveal_dock
  point_at "$minimized_window"
  xdotool click 1
  wait_for 20 "the document to come back" shows_window Ideas
  leave_dock
}

# The number of pixels in which two pictures differ.
difference_of() {
  compare -metric AE "$folder/effect-$1-2.png" "$folder/effect-$2-2.png" null: 2>&1 | sed 's/[^0-9.e+].*//' || true
}

expect_unlike() {
  [ "$(difference_of "$1" "$2" | awk '{ printf "%d", $1 }')" -gt 10000 ] || fail "$1 and $2 look alike at their middle"
}

# Each effect is a row of the sheet, each moment a column.
show_effects() {
  open_documents
  leave_dock
  for effect in $effects; do photograph_effect "$effect"; done
  expect_unlike genie scale
  expect_unlike genie suck
  expect_unlike scale suck
  # shellcheck disable=SC2046 # one argument for each picture
  montage $(for effect in $effects; do echo "$folder/effect-$effect-1.png $folder/effect-$effect-2.png $folder/effect-$effect-3.png"; done) \
    -resize 50% -tile 3x -geometry +4+4 "$folder/effects.png"
  rm "$folder"/effect-*-[123].png
}
