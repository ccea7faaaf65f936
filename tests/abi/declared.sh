#!/bin/sh
# declared.sh MARK LIST HEADER... - every listed name is declared, behind MARK, in exactly one of the
# headers and has a comment: directly before it, before the group it stands in, or on its line; and
# every name so declared is listed.
set -eu
mark=$1 list=$2
shift 2
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
LC_ALL=C
export LC_ALL

# One line for each declaration: name, header, and whether it has words. A comment counts until the
# next blank line, so a heading or an introduction set off by one does not count.
awk -v mark="$mark" '
function end_declaration(    name) {
    name = declaration
    sub(".*" mark " ", "", name)
    if (match(name, /[A-Za-z_0-9]+\(/)) {
        name = substr(name, RSTART, RLENGTH - 1)
    } else {
        sub(/[[;].*/, "", name)
        sub(/.*[ *]/, "", name)
    }
    print name, FILENAME, worded ? "worded" : "bare"
    declaration = ""
}
FNR == 1 { worded = 0; declaration = ""; in_comment = 0 }
/^#/ { next }
in_comment { if (/\*\//) { in_comment = 0; worded = 1 } next }
declaration == "" && /^\/\*/ { if (/\*\//) worded = 1; else in_comment = 1; next }
/^[ \t]*$/ { worded = 0; next }
declaration == "" && $0 !~ "^(extern )?" mark " " { next }
{
    declaration = declaration " " $0
    own = worded
    if (/;.*\/\*.*\*\//) worded = 1
    if (/;/) { sub(/\/\*.*\*\//, "", declaration); end_declaration(); worded = own }
}
' "$@" | sort > "$work/declarations"

status=0
awk '{ print $1 }' "$work/declarations" | uniq > "$work/declared"
sort "$list" > "$work/listed"
if ! diff "$work/listed" "$work/declared" > "$work/difference"; then
    echo "listed (<) and declared (>) names differ:"
    cat "$work/difference"
    status=1
fi
awk '{ print $1 }' "$work/declarations" | uniq -d > "$work/twice"
if [ -s "$work/twice" ]; then
    echo "declared twice:"
    cat "$work/twice"
    status=1
fi
if grep ' bare$' "$work/declarations"; then
    echo "above: declared without a word"
    status=1
fi
exit $status
