#!/bin/sh
# Settings of the Dock. What is right already is left alone, and then so is the Dock.
# Profile: quick
set -eu

domain=com.apple.dock
touched=no

# keep KEY TYPE PRINTED ARGUMENT...: how defaults tells of the value where it is right already, and how it is given one.
keep() {
  key=$1
  type=$2
  printed=$3
  shift 3
  if [ "$(defaults read-type "$domain" "$key" 2>/dev/null)" != "Type is $type" ] ||
    [ "$(defaults read "$domain" "$key" 2>/dev/null)" != "$printed" ]; then
    defaults write "$domain" "$key" "$@"
    touched=yes
  fi
}

# drop KEY: what the Dock does without it is its own business.
drop() {
  if defaults read-type "$domain" "$1" >/dev/null 2>&1; then
    defaults delete "$domain" "$1"
    touched=yes
  fi
}

keep autohide-delay float 0 -float 0.0
keep autohide-time-modifier float 0.15 -float 0.15
keep scroll-to-open boolean 1 -bool true
keep mineffect string suck -string suck
keep static-only boolean 0 -bool false
keep single-app boolean 1 -bool true
drop showhidden

# A Dock that runs has read its settings; the one that follows it reads them anew.
if [ "$touched" = yes ]; then
  killall Dock 2>/dev/null || true
fi
