# The settings as the store has them, and what the program's two commands are to make of them. Sourced, not run. Expects
# $helpers, the folder of the stand-ins, and $project.
#
# shellcheck shell=sh disable=SC2034,SC2154

saved_commands=$project/tests/fixtures/saved-commands
reset_commands=$project/tests/fixtures/reset-commands

setting() { "$helpers/defaults" read com.apple.dock "$1" 2>/dev/null || echo absent; }

setting_is() { [ "$(setting "$1")" = "$2" ]; }

# One "key value" a line.
settings() { while read -r _ _ _ key _; do echo "$key $(setting "$key")"; done <"$saved_commands"; }

settings_are() { [ "$(settings)" = "$1" ]; }

# The same after the commands in $1.
outcome_of() {
  sed 's/;.*//; s/ &&.*//; s/ true$/ 1/; s/ false$/ 0/; s/\.0$//' "$1" | awk '{ print $4, $6 }'
}
