# shellcheck shell=bash
# Building with CMake presets and Ninja, quiet unless something fails. Sourced by run.

# build PRESET [TARGET ...]: configures when needed and builds the targets, or everything.
build() {
  local preset=$1
  shift
  local tree="$root/build/$preset" log="$root/build/$preset.log"
  mkdir -p "$root/build"
  if [ ! -f "$tree/build.ninja" ]; then
    (cd "$root" && cmake --preset "$preset") >"$log" 2>&1 || build_failed "configuring $preset" "$log"
  fi
  NINJA_STATUS='[%f/%t] ' cmake --build "$tree" ${1:+--target "$@"} 2>&1 | tee "$log" | show_progress "$preset" ||
    build_failed "building $preset" "$log"
}

# leave_bundle PRESET: puts the bundle for Objective-C hosts into dist/, whole, to be copied wherever it is wanted. A
# build without the Objective-C edge has none.
leave_bundle() {
  local bundle="$root/build/$1/objc/vOutlookPlugin.bundle"
  [ -d "$bundle" ] || return 0
  rm -rf "$root/dist/vOutlookPlugin.bundle"
  mkdir -p "$root/dist"
  cp -R "$bundle" "$root/dist/"
  echo "The bundle is dist/vOutlookPlugin.bundle"
}

# Turns Ninja's lines into one: a running count on a terminal, a single closing line elsewhere.
show_progress() {
  local line built="" began=$SECONDS told=$SECONDS
  while IFS= read -r line; do
    [[ $line =~ ^\[([0-9]+)/([0-9]+)\] ]] || continue
    built=yes
    if [ -t 1 ]; then
      printf '\rBuilding %s: %s of %s \033[K' "$1" "${BASH_REMATCH[1]}" "${BASH_REMATCH[2]}"
    elif [ $((SECONDS - told)) -ge 60 ]; then
      echo "Building $1: ${BASH_REMATCH[1]} of ${BASH_REMATCH[2]}"
      told=$SECONDS
    fi
  done
  [ -n "$built" ] || return 0
  if [ -t 1 ]; then printf '\r\033[K'; fi
  if [ $((SECONDS - began)) -ge 5 ]; then echo "Built $1 in $((SECONDS - began)) seconds"; fi
}

build_failed() {
  # The first failure tells the most, and Ninja repeats its command above it.
  echo "FAIL $1:" >&2
  { grep -E -m 20 '(error|Error|FAILED)' "$2" || tail -n 40 "$2"; } | cut -c1-400 >&2
  echo "The whole output is in ${2#"$root/"}" >&2
  exit 1
}
