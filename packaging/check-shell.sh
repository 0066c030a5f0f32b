# Whether zsh still finds the stand-ins after what it does at its start. Sourced, not run.
#
# shellcheck shell=sh

# check_shell FOLDER: says on standard error where /bin/zsh takes another `defaults` than that in FOLDER, which is first
# on its PATH. What a start-up file prints comes first, so the last line is the answer.
check_shell() {
  found=$(PATH="$1:$PATH" /bin/zsh -c 'whence -v defaults' 2>/dev/null </dev/null | tail -n 1)
  [ "$found" != "defaults is $1/defaults" ] || return 0
  cat >&2 <<TEXT
Tarnwell cannot reach its stand-ins: it runs commands with /bin/zsh, which says "$found"
and should find $1/defaults.
A start-up file of zsh, such as ${ZDOTDIR:-$HOME}/.zshenv, sets PATH anew; let it add to PATH instead.
Until then the window does not show what the stand-in Dock goes by.
TEXT
}
