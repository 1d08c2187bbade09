#!/usr/bin/env bash
# SPDX-License-Identifier: MIT
# cmake --install into a prefix of the test's own (no root needed), then a
# CMake project (find_package) and a Makefile project (pkg-config) build
# against it, each creating a register and reading a user back.
#   install_test.sh BUILD-DIR CONSUMER-SOURCE WORK-DIR
set -euo pipefail
build=$1
consumer=$2
work=$3
rm -rf "$work"
mkdir -p "$work"
prefix=$work/prefix

cmake --install "$build" --prefix "$prefix" >/dev/null
libdir=$(dirname "$(find "$prefix" -name 'libvarnock.so.1' -print -quit)")
[ -n "$libdir" ] || { echo "no libvarnock.so.1 installed" >&2; exit 1; }
for installed in bin/varnock include/varnock/varnock.h share/man/man1/varnock.1 \
  share/doc/varnock/LICENSE; do
  [ -e "$prefix/$installed" ] || { echo "not installed: $installed" >&2; exit 1; }
done
# The installed tool finds its library with nothing set.
"$prefix/bin/varnock" --version

expect_user() {
  local got
  got=$("$@")
  [ "$got" = "ann Ann Lee" ] || { echo "expected \"ann Ann Lee\" from $*, got \"$got\"" >&2; exit 1; }
}

cp -r "$consumer" "$work/cmake-project"
(cd "$work/cmake-project" && rm Makefile &&
  cmake -S . -B build -G Ninja -DCMAKE_PREFIX_PATH="$prefix" >/dev/null && cmake --build build >/dev/null)
expect_user "$work/cmake-project/build/read_user_back" "$work/cmake.db"

# The CMake package refuses a version it does not provide.
mkdir -p "$work/too-new"
printf 'cmake_minimum_required(VERSION 3.25)\nproject(p NONE)\nfind_package(Varnock 2.0 REQUIRED)\n' \
  >"$work/too-new/CMakeLists.txt"
if cmake -S "$work/too-new" -B "$work/too-new/build" -DCMAKE_PREFIX_PATH="$prefix" >/dev/null 2>&1; then
  echo "find_package(Varnock 2.0) accepted version 1" >&2
  exit 1
fi

cp -r "$consumer" "$work/make-project"
(cd "$work/make-project" && rm CMakeLists.txt &&
  PKG_CONFIG_PATH="$libdir/pkgconfig" make >/dev/null)
LD_LIBRARY_PATH="$libdir" expect_user "$work/make-project/read_user_back" "$work/make.db"
# A static link needs what the library uses: pkg-config says so.
PKG_CONFIG_PATH="$libdir/pkgconfig" pkg-config --static --libs varnock | grep -q -- '-lsqlite3'
echo "installed and used from $prefix"
