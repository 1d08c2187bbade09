#!/usr/bin/env bash
# SPDX-License-Identifier: MIT
# A tour of the register on a fresh embedded database, through the varnock
# command-line tool: countries and states, users with their groups and zones,
# a walk and a page through the users, the relations between them, changes,
# and what happens to a refused value and a failed write.
# Usage: scripts/demo.sh [BUILD_DIR]   (default: build)
set -euo pipefail
cd "$(dirname "$0")/.."
varnock="${1:-build}/tools/varnock/varnock"
[ -x "$varnock" ] || { echo "build the project first: $varnock is missing" >&2; exit 2; }

work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
export VARNOCK_DSN="$work/register.db"
export VARNOCK_EVENT_LOG="file:$work/events.jsonl"

say() { printf '\n== %s\n' "$*"; }
# Shows a command and its output; a failure the tour means to show (exit 1)
# does not end it, anything worse does.
run() {
  printf '$ varnock %s\n' "$*"
  local status=0
  "$varnock" "$@" || status=$?
  [ "$status" -le 1 ] || { echo "unexpected exit status $status" >&2; exit "$status"; }
}
quiet() { "$varnock" "$@" > /dev/null; }

say "A new register"
run init "$VARNOCK_DSN"

say "Countries and states"
for country in Norway Sweden Chile; do quiet call Country AddCountry --set "Country=$country"; done
for state in Oslo Viken; do quiet call State AddState --set "State=$state"; done
run call Country GetEveryCountry strOrderClause=Country

say "Users (each row checked column by column before it is written)"
add_user() {  # name first last country
  quiet call User AddUser --set "Username=$1" --set "Firstname=$2" --set "Lastname=$3" \
    --set "Country=$4" --set Password=secret --set "Email=$1@example.org" \
    --set Authorized=true --set "DateCreated=#2000-05-04 13:45#"
}
add_user jdoe Jane Doe Norway
add_user asmith Anna Smith Sweden
add_user bjones Bob Jones Chile
add_user cmiller Carl Miller Norway
run call User CountEveryUser

say "Groups and their members, zones and their addresses"
quiet call GroupCode AddGroupCode --set GroupCode=ADM --set Group=Administrators
quiet call GroupCode AddGroupCode --set GroupCode=USR --set Group=Users --set "Comment=everyone"
for member in ADM:jdoe USR:jdoe USR:asmith USR:bjones USR:cmiller; do
  quiet call GroupMember AddGroupMember --set "GroupCode=${member%%:*}" --set "Username=${member#*:}"
done
quiet call Zone AddZone --set Zone=North --set Test=false
quiet call Zone AddZone --set Zone=South --set Test=true
address=10
for link in North:jdoe North:asmith North:cmiller South:bjones; do
  quiet call ZoneAddress AddZoneAddress --set "Zone=${link%%:*}" --set "Username=${link#*:}" \
    --set "Address=$((address++))" --set "CreationDate=#5/4/2000#"
done
run call GroupMember CountEveryGroupMember
run call ZoneAddress GetEveryZoneAddress strOrderClause=Address

say "A walk through the users by last name: first, next from row 1, last"
run call User GetFirstUser strOrderClause=Lastname
run call User GetNextUser 1 strOrderClause=Lastname
run call User GetLastUser strOrderClause=Lastname

say "A page of users: skip the first two, show at most two"
run call User GetEveryUser strOrderClause=UserName lngOffset=2 lngNumRecords=2

say "The groups and the zones of jdoe"
run call User GetDerivedChildrenInGroupCode --set Username=jdoe
run call User GetDerivedChildrenInZone --set Username=jdoe

say "The users of zone North, by last name, and the members of group USR"
run call Zone GetDerivedChildrenInUser strOrderClause=Lastname --set Zone=North
run call GroupCode CountChildrenInGroupMember --set GroupCode=USR
run call GroupMember GetParentInUser --set GroupCode=USR --set Username=asmith

say "Changes: zone South stops being a test zone, bjones leaves USR"
run call Zone UpdateZone --set Zone=South --set Test=false
run call Zone GetZone --set Zone=South
run call GroupMember DeleteGroupMember --set GroupCode=USR --set Username=bjones
run call ZoneAddress DeleteZoneAddress "strWhereClause=Zone = 'South'"
run call GroupMember CountEveryGroupMember

say "A refused value: Authorized is a bit, and 'maybe' is no boolean"
run call User AddUser --set Username=dlee --set Authorized=maybe

say "A failed write: Norway is already a country"
run call Country AddCountry --set Country=norway

say "Where the events went ($VARNOCK_EVENT_LOG)"
cat "$work/events.jsonl"
