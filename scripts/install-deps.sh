#!/usr/bin/env bash
# SPDX-License-Identifier: MIT
# Installs the Debian packages that Varnock builds and tests with, skipping
# those already present. Run as root or with sudo available.
set -euo pipefail
packages=(
  cmake ninja-build g++ pkg-config clang-format-14
  clang-14 libclang-rt-14-dev
  libgtest-dev libgmock-dev libbenchmark-dev
  libsystemd-dev
  libsqlite3-dev sqlite3
  unixodbc unixodbc-dev libsqliteodbc tdsodbc
  # The PostgreSQL tests' own server; citext comes with the server package
  # on Debian 12 (postgresql-contrib-15 is only a name it provides).
  postgresql-15 odbc-postgresql
  pybind11-dev python3-dev
  # Packaging: the .deb (dpkg-shlibdeps), its manual page, pip install from
  # the checkout into a virtual environment.
  dpkg-dev man-db python3-venv python3-pip python3-setuptools python3-wheel
  # Varnock.dll and the core built for Windows, run under Wine (64-bit only;
  # Wine's odbc32 hands on to libodbc2; widl from mingw-w64-tools reads the
  # IDL files of libwine-dev).
  g++-mingw-w64-x86-64-posix mingw-w64-tools libwine-dev wine wine64 libodbc2
)
missing=()
for p in "${packages[@]}"; do
  dpkg-query -W -f='${Status}' "$p" 2>/dev/null | grep -q 'install ok installed' || missing+=("$p")
done
if [ ${#missing[@]} -eq 0 ]; then
  exit 0
fi
sudo=""
[ "$(id -u)" -eq 0 ] || sudo="sudo"
export DEBIAN_FRONTEND=noninteractive
$sudo apt-get update -q
$sudo apt-get install -y -q --no-install-recommends "${missing[@]}"
