#!/bin/sh
# exports.sh LIBRARY LIST SONAME - the library exports the listed names and nothing else, under its
# soname.
set -eu
library=$1 list=$2 soname=$3
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
LC_ALL=C
export LC_ALL

"$NM" -D --defined-only "$library" | awk '{ print $3 }' | sort > "$work/built"
sort "$list" > "$work/listed"
if ! diff "$work/listed" "$work/built" > "$work/difference"; then
    echo "listed (<) and exported (>) names differ:"
    cat "$work/difference"
    exit 1
fi
cmp "$list" "$work/listed" || { echo "$list is not sorted"; exit 1; }
found=$("$READELF" -dW "$library" | sed -n 's/.*(SONAME).*\[\(.*\)\]/\1/p')
[ "$found" = "$soname" ] || { echo "soname is $found, not $soname"; exit 1; }
