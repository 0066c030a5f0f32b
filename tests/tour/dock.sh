# What the tour does with the stand-in Dock: looks from outside at what the saved settings do to it, and photographs its
# effects. Sourced, not run. Expects $helpers, $folder, $tour and $dock_log, and what stage.sh gives.
#
# shellcheck shell=sh disable=SC2154

effects="genie scale suck"
slow_effect=3.36 # seconds, with Shift held

point_at() {
  # shellcheck disable=SC2086 # two coordinates
  xdotool mousemove $1
}

# Its number is then $shown. A search ends early when a window goes away meanwhile.
shows_window() {
  shown=$(xdotool search --onlyvisible --name "^$1\$" 2>/dev/null | head -n 1)
  [ -n "$shown" ]
}

shows_no_window() { ! shows_window "$1"; }

brightness_at() { import -window root -crop "1x1+$1+$2" +repage -depth 8 gray:- | od -An -tu1; }

is_lit() { [ "$(brightness_at "$1" "$2")" -gt 20 ]; }

# The uppermost line of the shelf, once the dock is there.
dock_has_come() { is_lit 640 822; }

reveal_dock() {
  point_at "640 899"
  wait_for 20 "the Dock to come" dock_has_come
}

# Away from the lower edge and from every window of the tour.
leave_dock() {
  point_at "1270 600"
  wait_for 20 "the Dock to hide" shows_no_window Dock
}

# Its middle is then $tile, in points of the screen.
has_tile() {
  tile=$("$tour/dock-tiles" 2>/dev/null | sed -n "s/ $1\$//p")
  [ -n "$tile" ]
}

has_no_tile() { tiles=$("$tour/dock-tiles") && ! echo "$tiles" | grep -q " $1\$"; }

# has_tile NAME, of a dock that has come or is coming.
find_tile() { wait_for 20 "$1 on the Dock" has_tile "$1"; }

# find_gap NAME NAME: $gap is then the column between two neighbours, in which there is nothing but the shelf.
find_gap() {
  find_tile "$1"
  gap=${tile% *}
  find_tile "$2"
  gap=$(((gap + ${tile% *}) / 2))
}

point_at_tile() {
  reveal_dock
  find_tile "$1"
  point_at "$tile"
}

# click_tile NAME [BUTTON]
click_tile() {
  point_at_tile "$1"
  xdotool click "${2:-1}"
}

# with_setting KEY TYPE VALUE
with_setting() {
  "$helpers/defaults" write com.apple.dock "$@"
  restart_dock
}

restart_dock() {
  docks=$(count_lines "$dock_log")
  "$helpers/killall" Dock
  wait_for 20 "the Dock to start again" has_lines "$dock_log" "$((docks + 1))"
}

# photograph_icon PICTURE NAME: at rest, with the pointer at the edge.
photograph_icon() {
  leave_dock
  reveal_dock
  find_tile "$2"
  import -window root -crop "40x40+$((${tile% *} - 20))+$((${tile#* } - 20))" +repage "$folder/icon-$1.png"
}

# The number of pixels in which two pictures differ.
difference_of() {
  compare -metric AE "$folder/$1.png" "$folder/$2.png" null: 2>&1 | sed 's/[^0-9.e+].*//' | awk '{ printf "%d", $1 }'
}

# expect_unlike NAME NAME PIXELS
expect_unlike() { [ "$(difference_of "$1" "$2")" -gt "$3" ] || fail "$1 and $2 look alike"; }

expect_alike() { [ "$(difference_of "$1" "$2")" -lt "$3" ] || fail "$1 and $2 should look alike"; }

expect_listed() { [ "$("$helpers/Dock" --list)" = "$1" ] || fail "the Dock does not list what was saved"; }

# Pictures at each quarter of the way into the Dock and at half the way back, and then the same at the usual pace.
photograph_effect() {
  leave_dock
  wait_for 20 "the document" shows_window Ideas
  ideas=$shown
  minimize_button=$("$tour/place-of" Ideas "push button" Minimize) || fail "Ideas has no button that minimizes it"
  xdotool windowraise "$ideas"
  # shellcheck disable=SC2086 # two coordinates
  xdotool mousemove --window "$ideas" $minimize_button
  "$tour/watch-dock" photograph "$folder/effect-$1" $slow_effect "0.25 0.5 0.75" \
    xdotool keydown Shift_L click 1 keyup Shift_L
  point_at_tile Ideas
  "$tour/watch-dock" photograph "$folder/effect-$1-back" $slow_effect 0.5 xdotool keydown Shift_L click 1 keyup Shift_L
  wait_for 20 "the document to come back" shows_window Ideas
  leave_dock
  # shellcheck disable=SC2086 # two coordinates
  xdotool mousemove --window "$ideas" $minimize_button
  "$tour/watch-dock" frames 700 xdotool click 1
  point_at_tile Ideas
  "$tour/watch-dock" frames 700 xdotool click 1
}

expect_effects_unlike() {
  for pair in "genie scale" "genie suck" "scale suck"; do
    one=${pair% *}
    other=${pair#* }
    expect_unlike "effect-$one-2" "effect-$other-2" 10000
    expect_unlike "effect-$one-back-1" "effect-$other-back-1" 10000
  done
}

# Each effect is a row, each moment a column, the last one on the way back.
make_sheet() {
  # shellcheck disable=SC2046 # one argument for each picture
  montage $(for effect in $effects; do
    for moment in 1 2 3 back-1; do echo "$folder/effect-$effect-$moment.png"; done
  done) -crop 900x900+300+0 +repage -resize 50% -tile 4x -geometry +4+4 "$folder/effects.png"
  rm "$folder"/effect-*-[123].png
}

scroll_on() {
  click_tile "$1" 4
  wait_for 20 "the windows to spread out" shows_window Windows
  import -window root "$folder/spread.png"
  press Escape
  wait_for 20 "the windows to go back" shows_no_window Windows
}

# What the saved settings do; the other effects are set without the window.
watch_saved_dock() {
  echo "The Dock after Save:"
  expect_listed "$after"
  reveal_dock
  find_gap Notebook Album
  "$tour/watch-dock" reveal "$gap" 0.7 0.3
  photograph_icon shown Notebook
  has_no_tile Letters || fail "applications that do not run are there"
  click_tile Notebook
  wait_for 20 "a document" shows_window Ideas
  scroll_on Notebook
  photograph_effect suck
  for effect in genie scale; do
    with_setting mineffect -string "$effect"
    photograph_effect "$effect"
  done
  expect_effects_unlike
  make_sheet
  click_tile Album
  wait_for 20 "the other application" shows_window Mountains
  wait_for 20 "the first application to hide" shows_no_window Ideas
  photograph_icon dimmed Notebook
  expect_unlike icon-shown icon-dimmed 800
}

is_shelf_light() { [ "$(brightness_at "$gap" 840)" -gt 100 ]; }

is_shelf_dark() { ! is_shelf_light; }

# One that finds a dark desktop has asked for it before it was there.
start_dark_dock() {
  leave_dock
  restart_dock
  point_at "640 899"
  # The uppermost line is too dark to be told from what is behind it.
  wait_for 20 "the Dock to come" is_lit "$gap" 826
  is_shelf_dark || fail "a Dock that starts on a dark desktop is light"
}

# The opposite of all that.
watch_reset_dock() {
  echo "The Dock after Reset to Defaults:"
  expect_listed "$after"
  reveal_dock
  find_gap Files Letters
  "$tour/watch-dock" reveal "$gap" 0.2 0.5
  photograph_icon hidden Notebook
  expect_alike icon-shown icon-hidden 40
  has_tile Letters || fail "applications that do not run are missing"
  click_tile Notebook
  wait_for 20 "the first application" shows_window Ideas
  click_tile Notebook 4
  click_tile Files
  wait_for 20 "another application" shows_window Projects
  shows_window Ideas || fail "the first application has hidden"
  shows_no_window Windows || fail "the windows have spread out"
  leave_dock
  "$tour/watch-dock" restart "$dock_log" "$gap"
  reveal_dock
  wait_for 20 "a light Dock" is_shelf_light
  kill -USR1 "$portal"
  wait_for 20 "a dark Dock" is_shelf_dark
  import -window root "$folder/dock-dark.png"
  start_dark_dock
  kill -USR2 "$portal"
}
