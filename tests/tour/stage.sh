# The stage of the tour: a display, a window manager, a session bus and folders of its own. Sourced, not run.
# Expects $tour, the folder of this file, and $folder, where pictures and logs go. Gives $portal, the number of the
# process that plays light and dark. Everything that is started is ended on leaving.
#
# shellcheck shell=sh disable=SC2034,SC2154

stage_processes=
stage_width=1280

fail() {
  echo "tour: $*" >&2
  import -window root "$folder/failed.png" 2>/dev/null || true
  exit 1
}

# wait_for SECONDS WHAT COMMAND...: asks again and again until the command succeeds.
wait_for() {
  deadline=$(($(date +%s) + $1))
  awaited=$2
  shift 2
  until "$@"; do
    [ "$(date +%s)" -lt "$deadline" ] || fail "waited in vain for $awaited"
    sleep 0.05
  done
}

# Starts a program whose output goes to a log of the program's name.
start() {
  log=$folder/$(basename "$1").log
  # There before the program is, for what reads it at once.
  : >"$log"
  "$@" >"$log" 2>&1 &
  started=$!
  stage_processes="$started $stage_processes"
}

leave_stage() {
  trap '' INT TERM HUP
  # The last one started needs those before it.
  for process in $stage_processes; do
    { kill "$process" && wait "$process"; } 2>/dev/null || true
  done
  [ -z "${stage_folder:-}" ] || rm -rf "$stage_folder"
}

enter_stage() {
  trap leave_stage EXIT
  trap 'exit 130' INT
  trap 'exit 143' TERM
  trap 'exit 129' HUP
  # Short, since the paths of sockets are.
  stage_folder=$(mktemp -d "${TMPDIR:-/tmp}/tarnwell-tour.XXXXXX")
  make_folders
  open_display
  open_bus
  start openbox
  wait_for 20 "the window manager" window_manager_runs
}

# Nothing of the user's is read or written.
make_folders() {
  for variable in HOME XDG_CONFIG_HOME XDG_DATA_HOME XDG_CACHE_HOME XDG_STATE_HOME XDG_RUNTIME_DIR; do
    mkdir -m 700 "$stage_folder/$variable"
    export "$variable=$stage_folder/$variable"
  done
  unset WAYLAND_DISPLAY LC_ALL LC_NUMERIC LANGUAGE MACOS_VERSION QT_QPA_PLATFORM QT_SCALE_FACTOR QT_STYLE_OVERRIDE
  export LANG=C.UTF-8 XDG_CURRENT_DESKTOP=tour
  # The same letters on every system, so that pictures are the same.
  cat >"$stage_folder/fonts.conf" <<TEXT
<?xml version="1.0"?>
<!DOCTYPE fontconfig SYSTEM "fonts.dtd">
<fontconfig>
  <dir>/usr/share/fonts/opentype/inter</dir>
  <cachedir>$stage_folder/fonts</cachedir>
</fontconfig>
TEXT
  export FONTCONFIG_FILE="$stage_folder/fonts.conf"
}

open_display() {
  cookie=$(od -An -N16 -tx1 /dev/urandom | tr -d ' \n')
  export XAUTHORITY="$stage_folder/xauthority"
  # The server does not look at the number of the display, which it has yet to choose. One that starts anew when its last
  # client goes, as the tool does that asks for the window manager, sends away that manager if it is just coming.
  xauth -q -f "$XAUTHORITY" add :0 . "$cookie" 2>/dev/null
  start Xvfb -displayfd 3 -screen 0 "${stage_width}x900x24" -auth "$XAUTHORITY" -nolisten tcp -noreset 3>"$stage_folder/display"
  wait_for 20 "a display" test -s "$stage_folder/display"
  read -r number <"$stage_folder/display"
  export DISPLAY=":$number"
  xauth -q add "$DISPLAY" . "$cookie"
}

window_manager_runs() { xdotool get_num_desktops >/dev/null 2>&1; }

# A bus on which nothing starts by itself.
open_bus() {
  cat >"$stage_folder/bus.conf" <<TEXT
<!DOCTYPE busconfig PUBLIC "-//freedesktop//DTD D-Bus Bus Configuration 1.0//EN"
  "http://www.freedesktop.org/standards/dbus/1.0/busconfig.dtd">
<busconfig>
  <type>session</type>
  <listen>unix:path=$stage_folder/bus</listen>
  <policy context="default">
    <allow send_destination="*"/>
    <allow receive_sender="*"/>
    <allow own="*"/>
  </policy>
</busconfig>
TEXT
  export DBUS_SESSION_BUS_ADDRESS="unix:path=$stage_folder/bus"
  start dbus-daemon --config-file="$stage_folder/bus.conf" --nofork --nopidfile
  wait_for 20 "the session bus" test -S "$stage_folder/bus"
  start "$tour/appearance-portal"
  portal=$started
  wait_for 20 "the appearance portal" grep -q ready "$folder/appearance-portal.log"
}

# What the programs that start afterwards say of their controls can be asked for.
open_accessibility() {
  start /usr/libexec/at-spi-bus-launcher --launch-immediately
  export QT_LINUX_ACCESSIBILITY_ALWAYS_ON=1
}
