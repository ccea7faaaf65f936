#!/bin/sh
# same_bits.sh PROGRAM OTHER_PROGRAM - both print the same, and something.
set -eu
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
"$1" > "$work/first" 2> "$work/reports"
"$2" > "$work/second" 2> "$work/reports"
[ -s "$work/first" ] || { echo "nothing was computed"; exit 1; }
diff "$work/first" "$work/second"
