# shellcheck shell=bash
# Finding and installing the Debian packages that a command needs. Sourced by run.

# Prints the packages of the given purposes that are not installed, one a line.
missing_packages() {
  local purpose package status
  for purpose in "$@"; do
    while read -r _ package; do
      status=$(dpkg-query -W -f='${db:Status-Status}' "$package" 2>/dev/null || true)
      [ "$status" = installed ] || echo "$package"
    done < <(grep "^$purpose " "$root/scripts/packages.txt")
  done | sort -u
}

# Installs the packages of the given purposes that are missing; says nothing when there are none.
install_packages() {
  if ! command -v dpkg-query >/dev/null; then
    return # Not Debian: CMake says what is missing.
  fi
  local missing
  missing=$(missing_packages "$@" | xargs)
  [ -n "$missing" ] || return 0
  echo "Missing packages: $missing"

  local as_root=()
  if [ "$(id -u)" -ne 0 ]; then
    as_root=(sudo)
    if ! command -v sudo >/dev/null || ! sudo -v 2>/dev/null; then
      tell_apt_line "$missing"
      exit 1
    fi
  fi
  echo "Installing them ..."
  mkdir -p "$root/build"
  local log="$root/build/packages.log"
  if ! install_quietly "$missing" "${as_root[@]}" >"$log" 2>&1; then
    tail -n 20 "$log" >&2
    tell_apt_line "$missing"
    exit 1
  fi
}

# install_quietly PACKAGES [COMMAND ...]: the command, such as sudo, is put before apt-get.
install_quietly() {
  local packages apt=(env DEBIAN_FRONTEND=noninteractive apt-get -o DPkg::Lock::Timeout=300)
  read -ra packages <<<"$1"
  shift
  "$@" "${apt[@]}" update && "$@" "${apt[@]}" install --yes --no-install-recommends "${packages[@]}"
}

tell_apt_line() {
  echo "Install them with this line as root, then start again:" >&2
  echo "  apt-get update && apt-get install --yes --no-install-recommends $1" >&2
}
