# Whether zsh still finds the stand-ins after what it does at its start. Sourced, not run.
#
# shellcheck shell=sh

# ask_shell FOLDER QUESTION: what /bin/zsh answers with FOLDER first on its PATH, after what its start-up files print.
ask_shell() { PATH="$1:$PATH" /bin/zsh -c "$2" 2>/dev/null </dev/null; }

# check_shell FOLDER: says on standard error where /bin/zsh takes another `defaults` than that in FOLDER.
check_shell() {
  # The answer that is told quotes what it finds odd in a path; these two do not.
  kind_and_path=$(ask_shell "$1" 'whence -w defaults; whence -p defaults' | tail -n 2)
  [ "$kind_and_path" != "defaults: command
$1/defaults" ] || return 0
  found=$(ask_shell "$1" 'whence -v defaults' | tail -n 1)
  cat >&2 <<TEXT
Tarnwell cannot reach its stand-ins: it runs commands with /bin/zsh, which says "$found"
and should find $1/defaults.
A start-up file of zsh, such as ${ZDOTDIR:-$HOME}/.zshenv, sets PATH anew; let it add to PATH instead.
Until then the window does not show what the stand-in Dock goes by.
TEXT
}
