#!/usr/bin/env bash
# SPDX-License-Identifier: MIT
# A throw-away PostgreSQL server for tests, in a folder of its own.
#
#   postgres_server.sh start DIR [OWNER_PID]   prints the port it listens on
#   postgres_server.sh stop DIR                stops it and removes DIR
#
# start makes a new cluster in DIR (an empty or missing folder), listening on
# 127.0.0.1 only, on a free port, with its socket in DIR; it makes a database
# for the register and a role that owns it, and writes their details to
# DIR/connection.env (PGHOST, PGPORT, PGDATABASE, PGUSER, PGPASSWORD and
# VARNOCK_POSTGRES_SOCKET_DIR lines, shell syntax). Given OWNER_PID, a watcher
# stops the server and removes DIR once that process has ended, so a test
# program that dies without stopping it leaves nothing running.
#
# As root the server runs as the postgres system user, which then owns DIR.
# The package's own clusters (/etc/postgresql, /var/lib/postgresql) are never
# touched. Programs are found in VARNOCK_POSTGRES_BIN when it is set, else on
# PATH or in /usr/lib/postgresql/<version>/bin, newest version first.
#
# Exit status: 0 on success, 3 when PostgreSQL's server programs are missing
# (tests then skip), 1 for any other failure, with the reason on stderr.
set -euo pipefail

readonly kDatabase=tolvane_register
readonly kRole=varnock
readonly kStartSeconds=30

fail() {
  echo "postgres_server.sh: $*" >&2
  exit 1
}

find_bin() {
  local dir candidates
  if [ -n "${VARNOCK_POSTGRES_BIN:-}" ]; then
    candidates=$VARNOCK_POSTGRES_BIN
  else
    candidates="$(dirname "$(command -v initdb 2>/dev/null || echo /nonexistent/x)")
      $(ls -d /usr/lib/postgresql/*/bin 2>/dev/null | sort -t/ -k5 -rn)"
  fi
  for dir in $candidates; do
    if [ -n "$dir" ] && [ -x "$dir/initdb" ] && [ -x "$dir/pg_ctl" ] && [ -x "$dir/postgres" ] &&
      [ -x "$dir/psql" ]; then
      echo "$dir"
      return 0
    fi
  done
  return 1
}

# Runs a command as the user the server runs as.
as_server_user() {
  if [ "$(id -u)" -eq 0 ]; then
    runuser -u postgres -- "$@"
  else
    "$@"
  fi
}

port_in_use() {
  (exec 3<>"/dev/tcp/127.0.0.1/$1") 2>/dev/null
}

start() {
  local dir=$1 owner=${2:-}
  local bin
  if ! bin=$(find_bin); then
    echo "postgres_server.sh: PostgreSQL's server programs (initdb, pg_ctl, postgres, psql)" \
      "were not found; install postgresql-15 or set VARNOCK_POSTGRES_BIN" >&2
    exit 3
  fi
  mkdir -p "$dir"
  dir=$(cd "$dir" && pwd)
  [ -z "$(ls -A "$dir")" ] || fail "$dir is not empty"
  # A start that fails halfway leaves no server running.
  trap 'stop_server "$dir" "$bin"' EXIT
  if [ "$(id -u)" -eq 0 ]; then
    id postgres >/dev/null 2>&1 || fail "running as root needs the postgres system user"
    chown postgres: "$dir"
    as_server_user test -w "$dir" ||
      fail "the postgres user cannot write to $dir (is a folder above it closed to others?)"
  fi

  # The role's password is fresh for each server; only the tests read it.
  local password
  password=$(od -An -N12 -tx1 /dev/urandom | tr -d ' \n')
  printf '%s\n' "$password" >"$dir/password"
  [ "$(id -u)" -ne 0 ] || chown postgres: "$dir/password"
  chmod 600 "$dir/password"

  # C.UTF-8 folds the case of every letter, not only ASCII's; the register's
  # columns bring their own collation, so the cluster's matters only to
  # anything the tests make themselves.
  as_server_user "$bin/initdb" -D "$dir/data" -U postgres -E UTF8 --locale=C.UTF-8 \
    --auth-local=trust --auth-host=scram-sha-256 --no-sync --no-instructions \
    >"$dir/initdb.log" 2>&1 || fail "initdb failed: $(tail -n 5 "$dir/initdb.log")"

  # A port nobody listens on; another server may take it first, so a failure
  # to bind tries the next one.
  local port="" attempt
  for attempt in 1 2 3 4 5 6 7 8; do
    port=$((20000 + (RANDOM * 32768 + RANDOM) % 40000))
    port_in_use "$port" && continue
    if as_server_user "$bin/pg_ctl" -D "$dir/data" -l "$dir/server.log" -w -t "$kStartSeconds" \
      -o "-c listen_addresses=127.0.0.1 -p $port -k '$dir' -c fsync=off -c full_page_writes=off" \
      -o "-c synchronous_commit=off -c max_connections=40 -c shared_buffers=16MB" \
      start >"$dir/pg_ctl.log" 2>&1; then
      break
    fi
    grep -q "could not bind\|Address already in use" "$dir/server.log" 2>/dev/null ||
      fail "the server did not start within ${kStartSeconds} s: $(tail -n 5 "$dir/server.log" 2>/dev/null)"
    as_server_user "$bin/pg_ctl" -D "$dir/data" stop -m immediate >/dev/null 2>&1 || true
    port=""
  done
  [ -n "$port" ] || fail "no free port found for the server"

  as_server_user "$bin/psql" -X -q -v ON_ERROR_STOP=1 -h "$dir" -p "$port" -U postgres \
    -d postgres >"$dir/setup.log" 2>&1 <<SQL || fail "setting up the database failed: $(cat "$dir/setup.log")"
CREATE ROLE $kRole LOGIN PASSWORD '$password';
CREATE DATABASE $kDatabase OWNER $kRole TEMPLATE template0 ENCODING 'UTF8' LOCALE 'C.UTF-8';
SQL

  cat >"$dir/connection.env" <<ENV
PGHOST=127.0.0.1
PGPORT=$port
PGDATABASE=$kDatabase
PGUSER=$kRole
PGPASSWORD=$password
VARNOCK_POSTGRES_SOCKET_DIR=$dir
VARNOCK_POSTGRES_BIN=$bin
ENV
  chmod 644 "$dir/connection.env"

  if [ -n "$owner" ]; then
    # Detached from the caller's terminal and pipes, so that the caller's
    # wait for this script's output does not wait for the watcher too.
    setsid "$0" watch "$dir" "$owner" </dev/null >/dev/null 2>&1 &
  fi
  trap - EXIT
  echo "$port"
}

stop_server() {
  local dir=$1 bin=$2
  [ -f "$dir/data/postmaster.pid" ] || return 0
  if [ -z "$bin" ] ||
    ! as_server_user "$bin/pg_ctl" -D "$dir/data" stop -m immediate -w -t 20 >/dev/null 2>&1; then
    local pid
    pid=$(head -n 1 "$dir/data/postmaster.pid" 2>/dev/null || true)
    [ -z "$pid" ] || kill -KILL "$pid" 2>/dev/null || true
  fi
}

stop() {
  local dir=$1
  [ -d "$dir" ] || return 0
  local bin=""
  if [ -f "$dir/connection.env" ]; then
    bin=$(sed -n 's/^VARNOCK_POSTGRES_BIN=//p' "$dir/connection.env")
  fi
  [ -n "$bin" ] || bin=$(find_bin) || true
  # Only a folder that start made is removed.
  [ -f "$dir/password" ] || [ -z "$(ls -A "$dir")" ] || fail "$dir is no test server's folder"
  stop_server "$dir" "$bin"
  rm -rf "$dir"
}

# Stops the server once the owner process has ended, or once the server has
# been stopped by other means.
watch() {
  local dir=$1 owner=$2
  while kill -0 "$owner" 2>/dev/null && [ -d "$dir" ]; do
    sleep 1
  done
  stop "$dir"
}

case "${1:-}" in
  start)
    [ $# -ge 2 ] || fail "usage: $0 start DIR [OWNER_PID]"
    start "$2" "${3:-}"
    ;;
  stop)
    [ $# -eq 2 ] || fail "usage: $0 stop DIR"
    stop "$2"
    ;;
  watch)
    watch "$2" "$3"
    ;;
  *)
    fail "usage: $0 start DIR [OWNER_PID] | stop DIR"
    ;;
esac
