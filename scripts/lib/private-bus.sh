# shellcheck shell=bash
# A D-Bus session bus for the laboratory's programs. Sourced by run.

# Makes sure that this shell and what it becomes by `exec` can reach a session bus: the user's own, or else a private
# one, which ends when they do. Without the bus's packages there is none, and the programs say so where it matters.
join_session_bus() {
  local address=${DBUS_SESSION_BUS_ADDRESS:-unix:path=${XDG_RUNTIME_DIR:-/nonexistent}/bus}
  if ! command -v dbus-daemon >/dev/null || session_bus_answers "$address"; then return 0; fi
  local daemon=
  { read -r address && read -r daemon; } < <(
    dbus-daemon --session --fork --print-address=1 --print-pid=1 2>/dev/null
  ) || true
  [ -n "$daemon" ] || return 0
  export DBUS_SESSION_BUS_ADDRESS=$address
  # In a session of its own, so that Ctrl-C ends the programs and not what they still say goodbye to.
  # shellcheck disable=SC2016 # the inner shell expands them
  setsid bash -c 'tail --pid="$1" --sleep-interval=0.5 -f /dev/null; kill "$2"' bash $$ "$daemon" \
    </dev/null &>/dev/null &
}

session_bus_answers() {
  timeout 5 dbus-send --bus="$1" --print-reply --dest=org.freedesktop.DBus / org.freedesktop.DBus.GetId &>/dev/null
}
