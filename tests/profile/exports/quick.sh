#!/bin/sh
# Settings of the Dock. Changes what differs, and restarts the Dock once if anything did.
# Profile: quick
set -eu

changed=0

# want KEY TYPE SHOWN VALUE: SHOWN is what "defaults read" prints for VALUE.
want() {
  if [ "$(defaults read-type com.apple.dock "$1" 2>/dev/null)" = "Type is $2" ] &&
    [ "$(defaults read com.apple.dock "$1" 2>/dev/null)" = "$3" ]; then
    return
  fi
  case $2 in
    boolean) defaults write com.apple.dock "$1" -bool "$4" ;;
    float) defaults write com.apple.dock "$1" -float "$4" ;;
    *) defaults write com.apple.dock "$1" -string "$4" ;;
  esac
  changed=1
}

unwanted() {
  if defaults read com.apple.dock "$1" >/dev/null 2>&1; then
    defaults delete com.apple.dock "$1"
    changed=1
  fi
}

want autohide-delay float 0 0.0
want autohide-time-modifier float 0.15 0.15
want scroll-to-open boolean 1 true
want mineffect string suck suck
want static-only boolean 0 false
want single-app boolean 1 true
unwanted showhidden

# Without a Dock there is nothing to restart: it reads the settings when it starts.
[ "$changed" -eq 0 ] || killall Dock 2>/dev/null || true
