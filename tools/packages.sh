# What the scripts need from the system, by purpose. Sourced, not run.
#
#   prepare build run     installs what is missing for building and running
#
# shellcheck shell=sh

packages_for() {
  case $1 in
    build) echo g++ cmake ninja-build pkg-config qt6-base-dev qt6-svg-dev libicu-dev libplist-dev libexpat1-dev libsodium-dev libsystemd-dev libcurl4-openssl-dev libxml2-dev libseccomp-dev libxcb1-dev libcli11-dev nlohmann-json3-dev libtomlplusplus-dev ;;
    run)
      echo zsh xdg-utils
      # The toolkit speaks to a Wayland desktop through a plug-in of its own.
      [ -z "${WAYLAND_DISPLAY:-}" ] || echo qt6-wayland
      ;;
    # The sources of locales are there for a test that makes a locale with a decimal comma.
    test) echo libgtest-dev libgmock-dev fish dpkg locales openssl python3 ;;
    lint) echo clang-format-14 clang-tidy-14 shellcheck python3 ;;
    analysis) echo clazy cppcheck libbenchmark-dev ;;
    # To compile for macOS. Many a system has npm without Debian's package of it, which brings hundreds.
    macos)
      echo clang-19 lld-19 llvm-19 libc++-19-dev googletest python3
      # For the one library that is compiled from its source.
      echo dpkg-dev autoconf automake libtool make
      command -v npm >/dev/null || echo npm
      ;;
    packaging) echo debhelper git lintian mandoc appstream desktop-file-utils mmdebstrap ;;
    # In the place of macOS: what its host is tested on.
    gnustep) echo gobjc++ gnustep-make make libgnustep-gui-dev gnustep-back0.29-cairo fonts-dejavu-core xvfb ;;
    # Their code is made in half the time by this compiler, which fuzzing needs anyway.
    sanitizers) echo clang-19 lld-19 libclang-rt-19-dev ;;
    tour) echo xvfb xauth openbox xdotool imagemagick fonts-inter dbus-daemon at-spi2-core python3-dbus python3-gi python3-xlib trayer ;;
    faults) echo python3 strace ;;
    mutations) echo bubblewrap git python3 ;;
    soak) echo git valgrind ;;
    coverage) echo llvm-19 python3 ;;
    gates) echo dbus-daemon git libbenchmark-dev libxcb-damage0-dev python3-dbus python3-gi valgrind xauth xvfb ;;
    # The tools that exports are for, and those that judge what is written for them.
    handover) echo ansible ansible-lint bash dash jq libplist-utils libxml2-utils nix-bin python3 shellcheck yamllint zsh ;;
    desktop) echo at-spi2-core python3-pyatspi sway weston wtype qt6-wayland gir1.2-gtk-3.0 ;;
  esac
}

# The programs among them, for systems where we cannot ask for packages. Libraries are found missing by CMake.
commands_for() {
  case $1 in
    build) echo c++ cmake ninja pkg-config ;;
    run) echo zsh ;;
    test) echo dpkg-deb fish localedef openssl python3 ;;
    lint) echo clang-format-14 clang-tidy-14 run-clang-tidy-14 shellcheck python3 ;;
    analysis) echo clazy-standalone cppcheck ;;
    sanitizers) echo clang++-19 ld.lld-19 ;;
    macos) echo clang-19 ld64.lld-19 llvm-ar-19 npm python3 dpkg-source autoreconf make ;;
    packaging) echo dpkg-buildpackage dh git lintian mandoc appstreamcli desktop-file-validate mmdebstrap ;;
    gnustep) echo gnustep-config make Xvfb ;;
    tour) echo Xvfb xauth openbox xdotool import convert dbus-daemon python3 trayer ;;
    faults) echo python3 strace ;;
    mutations) echo bwrap git python3 ;;
    soak) echo git valgrind ;;
    coverage) echo llvm-cov-19 llvm-profdata-19 python3 ;;
    gates) echo dbus-run-session git python3 valgrind xvfb-run ;;
    handover) echo ansible-playbook ansible-lint bash dash jq plistutil xmllint nix-instantiate python3 shellcheck yamllint zsh ;;
    desktop) echo sway swaymsg weston wtype ;;
  esac
}

for_each() {
  of=$1
  shift
  for purpose; do "$of" "$purpose"; done | tr ' ' '\n'
}

missing_packages() {
  # shellcheck disable=SC2046 # one argument for each package
  installed=$(dpkg-query -W -f '${Package} ${db:Status-Status}\n' $(for_each packages_for "$@") 2>/dev/null |
    sed -n 's/ installed$//p')
  for_each packages_for "$@" | while read -r package; do
    printf '%s\n' "$installed" | grep -qxF "$package" || printf '%s ' "$package"
  done
}

missing_commands() {
  for_each commands_for "$@" | while read -r command; do
    command -v "$command" >/dev/null || printf '%s ' "$command"
  done
}

as_root() {
  if [ "$(id -u)" -eq 0 ]; then
    "$@"
  elif command -v sudo >/dev/null; then
    sudo "$@"
  else
    echo "Neither root nor sudo: cannot run: $*" >&2
    return 1
  fi
}

apt() {
  as_root env DEBIAN_FRONTEND=noninteractive apt-get -q -y -o DPkg::Lock::Timeout=300 "$@"
}

install_packages() {
  echo "Installing: $*"
  # A list of packages that cannot be renewed may still do.
  apt update || true
  apt install --no-install-recommends "$@"
}

prepare() {
  if command -v dpkg-query >/dev/null && command -v apt-get >/dev/null; then
    missing=$(missing_packages "$@")
    [ -n "$missing" ] || return 0
    # shellcheck disable=SC2086 # one argument for each package
    install_packages $missing || true
    missing=$(missing_packages "$@")
    [ -n "$missing" ] || return 0
    echo "These packages are missing and could not be installed: $missing" >&2
    return 1
  fi
  echo "This system has no apt-get. Tarnwell needs what Debian 12 has in these packages:" >&2
  for_each packages_for "$@" | tr '\n' ' ' | sed 's/^/  /;s/ $//' >&2
  echo >&2
  missing=$(missing_commands "$@")
  [ -n "$missing" ] || { echo "The programs among them are here; going on." >&2 && return 0; }
  echo "These programs are missing: $missing" >&2
  return 1
}
