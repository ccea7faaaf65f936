#!/bin/sh
# counted.sh MARK HEADERS SWEEP... - the files of the sweep of counts name every function that is
# declared in the headers, behind MARK, with a count, an index or a size, be it in a row or among those
# that are left out.
set -eu
mark=$1 headers=$2
shift 2

# Integers that are none of these: they choose, and address nothing.
flags='bounded(_[12])?|extrapolate|intersect|normalise|orientation|project|selector|unit|want_corner'

status=0
# shellcheck disable=SC2013 # names have no blanks
for name in $(awk -v start="^$mark " -v flag="int ($flags)[,)]" '
    $0 ~ start { declaration = "" }
    { declaration = declaration $0 }
    /;/ {
        gsub(flag, "", declaration)
        if (declaration ~ start && declaration ~ /[(,] *int [a-z_0-9]+[,)]|const int /) {
            match(declaration, /[A-Za-z_0-9]+\(/)
            print substr(declaration, RSTART, RLENGTH - 1)
        }
        declaration = ""
    }' "$headers"/*.h); do
    grep -qwe "$name" "$@" || {
        echo "$name takes an integer that is not swept"
        status=1
    }
done
exit $status
