# shellcheck shell=bash
# The checks of `./run check`: each prints OK or FAIL, and a failing one what it found. Sourced by run.

# .ci/run names each of them, in its own order.
all_checks=(format tidy floors names portable outputs release asan tsan)
# These run only when they are named.
named_checks=(quick macos fuzz)

run_checks() {
  local names=("$@") name failed=0
  [ ${#names[@]} -gt 0 ] || names=("${all_checks[@]}")
  for name in "${names[@]}"; do
    [[ " ${all_checks[*]} ${named_checks[*]} " == *" $name "* ]] || {
      echo "./run check: there is no check \"$name\"; there are: ${all_checks[*]}; and by name: ${named_checks[*]}" >&2
      exit 2
    }
  done
  install_packages build check
  if [[ " ${names[*]} " == *" macos "* ]]; then install_cross_compiler; fi
  mkdir -p "$root/build/checks"
  cd "$root" || exit
  for name in "${names[@]}"; do
    run_check "$name" || failed=1
  done
  return $failed
}

run_check() {
  local log="$root/build/checks/$1.log" began=$SECONDS
  if ("check_$1") >"$log" 2>&1; then
    printf 'OK    %-8s %s s\n' "$1" $((SECONDS - began))
  else
    printf 'FAIL  %-8s %s s\n' "$1" $((SECONDS - began))
    tail -n 60 "$log" | sed 's/^/      /'
    return 1
  fi
}

# For every day, by name only: what reads the sources at once, the tests of single rooms, and the scenarios. The roads in
# one process, the shell's worlds, the conformance of the runtimes and the windows are left to `./run test`.
check_quick() {
  local name
  for name in format floors names portable outputs; do
    echo "$name"
    "check_$name" || return 1
  done
  build dev
  ctest --preset dev --parallel 3 --exclude-regex '^(road|shell|desktop|conformance)\.'
}

# Every file of the project, tracked or new, that is ours and is not ignored.
our_files() {
  local file
  git ls-files --cached --others --exclude-standard "$@" | sort -u | while read -r file; do
    if [ -f "$file" ]; then echo "$file"; fi
  done
}
our_sources() { our_files '*.cpp' '*.h' '*.mm' '*.m'; }

check_format() { our_sources | xargs -r clang-format --dry-run -Werror; }

check_floors() { scripts/check-floors; }

# The top folders of this machine that neither every system nor this tree has, as alternatives of a pattern: a path into
# them, or into the administrator's home, holds nowhere else.
folders_of_this_machine() {
  local common='bin|boot|dev|etc|home|lib[0-9x]*|media|mnt|opt|proc|run|sbin|srv|sys|tmp|usr|var|cores|private'
  common+="|Applications|Library|Network|System|Users|Volumes|build|$(git ls-tree -d --name-only HEAD | paste -sd '|' -)"
  { echo root; ls /; } | grep -E '^[[:alnum:]_-]+$' | grep -vxE "$common" | sort -u | paste -sd '|' -
}

# What must stand in no file: a path of one machine, and a reference to a document that is not in the tree; a
# comment explains itself.
check_names() {
  local found=0
  if our_files | xargs -r grep -nIE '(^|[^[:alnum:]_./$}])/('"$(folders_of_this_machine)"')/[[:alnum:]_.-]+'; then found=1; fi
  if our_files | xargs -r grep -nIEi '\b[p]arts? [0-9]+(\.[0-9]+)?\b|\b[s]pec(s|\.md|ifications?)\b'; then found=1; fi
  return $found
}

# What only Linux has may stand where it stays on Linux: in the embedded ports, in what is written for GNUstep, and in
# what stands in for a missing workspace, which finds no process where there is no folder of them.
check_portable() {
  local found=0
  if our_files 'plugin/*.cpp' 'plugin/*.h' 'plugin/*.m' 'plugin/*.mm' |
    grep -v -e '^plugin/platform/embedded/' -e '_GNUstep\.' -e '/ProcessWorkspace\.' |
    xargs -r grep -nE '\b(pipe2|accept4|dup3|eventfd|epoll_[a-z]+|signalfd|timerfd_[a-z]+|inotify_[a-z]+|prctl|ppoll|getrandom|SOCK_CLOEXEC|SOCK_NONBLOCK)\b|"/proc'; then found=1; fi
  return $found
}

# The laboratory prints through one door, which covers secrets. What draws on a terminal, and what hands on the bytes of
# a file or of another program, has its own.
check_outputs() {
  local found=0
  if our_files 'lab/shell/*.cpp' 'lab/objc/*.mm' |
    grep -v -E '/(Output|ProgressBar|WatchScreen|WatchedProgram|BodyCommand)\.cpp$' |
    xargs -r grep -nE '\b(v?f?printf|f?puts|fwrite|putchar)\(|std::c(out|err)\b'; then found=1; fi
  return $found
}

# Tidy reads the compile commands of the dev build, and the headers that building it makes. Here it reads the product;
# `scripts/tidy build/dev` reads the laboratory too, which takes half as long again.
check_tidy() {
  build dev
  scripts/tidy build/dev '^plugin/'
}

# What is written in Objective-C++ goes through the optimiser too, in which g++ 12 ends with an internal error on some
# drawings. The other trees are built without it, and the benchmarks' is not built every day.
check_release() {
  install_packages objc desktop
  with_toolkit release
  build release vorn_apple vorn_appkit lab_objc lab_desktop
}

# Benchmarks and fuzzers are built here as well, so that they follow what they measure and try.
check_asan() {
  build asan
  ctest --preset asan --parallel 3
}

# Every fuzzer for a minute, from its seeds and from what earlier runs have found worth keeping. FUZZ_SECONDS sets another
# time. What a fuzzer stumbles over lies in build/fuzz-finds.
check_fuzz() {
  local source name names=() finds="$root/build/fuzz-finds" failed=0
  for source in fuzz/*.cpp; do names+=("$(basename "$source" .cpp)"); done
  install_packages fuzz
  build fuzz "${names[@]/#/fuzz_}"
  mkdir -p "$finds"
  for name in "${names[@]}"; do
    if fuzz "$name" "${FUZZ_SECONDS:-60}" -artifact_prefix="$finds/$name-" >"$finds/$name.log" 2>&1; then
      echo "$name: $(grep -m 1 -E '^Done ' "$finds/$name.log")"
    else
      echo "$name:"
      tail -n 30 "$finds/$name.log"
      failed=1
    fi
  done
  return $failed
}

# fuzz NAME SECONDS [OPTION ...]: runs one fuzzer that is built.
fuzz() {
  local name=$1 seconds=$2 seeds=("$root/fuzz/seeds/$1")
  shift 2
  mkdir -p "$root/build/corpus/$name"
  [ -d "${seeds[0]}" ] || seeds=()
  "$root/build/fuzz/fuzz/fuzz_$name" -max_total_time="$seconds" "$@" "$root/build/corpus/$name" "${seeds[@]}"
}

# The rooms in which more than one thread is at work: the channel's reader, the run loops, and the whole plug-in over
# the socket. Everything else runs on one thread, the scenarios in one process too, where this sanitizer has nothing to
# see.
check_tsan() {
  build tsan vornlab vornclient vOutlookPlugin test_transport test_platform test_road test_shell
  ctest --preset tsan --parallel 3 --tests-regex '^(transport|platform|road|shell)\.' \
    --exclude-regex '/Scenarios'
}

# The product for macOS, cross built for both architectures: every source compiled, and the bundle linked.
check_macos() {
  local architecture bundles=()
  for architecture in arm64 x86_64; do
    build "macos-$architecture"
    bundles+=("build/macos-$architecture/objc/vOutlookPlugin.bundle")
  done
  scripts/check-macos-bundle cmake/macos/libraries "${bundles[@]}"
}
