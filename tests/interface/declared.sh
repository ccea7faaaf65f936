#!/bin/sh
# declared.sh HEADERS ROWS OUT - reads the public headers of a folder and writes for the tests in ROWS,
# into the folder OUT:
#   extents.inc  the numbers in the array that each parameter of a function is, 0 where its header does
#                tell; beside a record or a list, as many as three of its points have; and which
#                functions hand out a block
#   plain.inc    the functions, less those that a row names, whose rows need to know no more than that
#   session.inc  those of them that read or write the session's state
#   counted.inc  the functions that take a count, an index or a size, less those that counts_test.cpp
#                names, be it as left out
# A function that no row names and none of these is for is an error.
set -eu
headers=$1 rows=$2 out=$3
mkdir -p "$out"

awk '
BEGIN {
    # Integers that choose, and address nothing.
    choice = "bounded(_[12])?|extrapolate|intersect|normalise|orientation|project|selector|unit|want_corner"
    record = "(const )?(ARC_SPLINE_(1_seg_2d|monge_plane)_t \\*?|BCDF \\*|PNTLST \\*)"
    scalar = "const double |((unsigned )?char|int|double) \\*?|const double \\*(tols|normal|params|point)|const int \\*"
    plain_parameter = "^((" scalar "|" record ")[a-zA-Z_0-9]*(\\[[0-9]+\\])?|void)$"
    plain_result = "^(void|int|double|(int|double|ARC_SPLINE_1_seg_2d_t|BCDF|PNTLST) \\*)$"
    takes_over = "_(free|create(_df)?_from)_"
    of_session = "/(acom|banded|session|tolerance|wcs)[.]h$"
}

function take(text,    name, result, parameters, n, i, of_structure, plain, hands_out, counted, extents) {
    gsub(/ +/, " ", text)
    sub(/\( /, "(", text)
    sub(/\);.*/, ")", text)
    match(text, /[A-Za-z_0-9]+\(/)
    name = substr(text, RSTART, RLENGTH - 1)
    result = substr(text, 1, RSTART - 1)
    sub(/ $/, "", result)
    n = split(substr(text, RSTART + RLENGTH), parameters, /, |\)/) - 1
    of_structure = text ~ /\(.*(BCDF|PNTLST) \*/
    plain = result ~ plain_result && name !~ takes_over ? FILENAME ~ of_session ? "session" : "plain" : "no"
    hands_out = result ~ /^(int|double) \*+$/ && name ~ /_(copy|create|allo)/
    counted = 0
    extents = ""
    for (i = 1; i <= n; ++i) {
        if (parameters[i] !~ plain_parameter) plain = "no"
        if (parameters[i] ~ /^(const int \*|int )[a-z_0-9]+$/ && \
            parameters[i] !~ "^int (" choice ")$") counted = 1
        extents = extents (i > 1 ? ", " : "") \
            (match(parameters[i], /[0-9]+\]$/) ? substr(parameters[i], RSTART, RLENGTH - 1) : \
            of_structure ? 12 : 0)
    }
    print name, plain, counted ? "counted" : "no", hands_out, extents
}

/^ZTMATH_API / { declaration = "" }
{ declaration = declaration $0 }
/;/ {
    if (declaration ~ /^ZTMATH_API .*\(.*\);/) take(substr(declaration, length("ZTMATH_API ") + 1))
    declaration = ""
}' "$headers"/*.h >"$out/declared"

# unnamed WORD FILE... - the functions so described that the files do not name, with commas.
unnamed() {
    word=$1
    shift
    cat "$@" | tr -cs 'A-Za-z_0-9' '\n' |
        awk -v word="$word" 'NR == FNR { named[$1]; next }
            index($0, word) && !($1 in named) { printf "%s%s", separator, $1; separator = ",\n" }
            END { print "" }' - "$out/declared"
}

awk '{
    name = $1
    hands_out = $4
    sub(/^[^ ]+ [^ ]+ [^ ]+ [^ ]+ /, "")
    printf "template <>\ninline constexpr Extents extents<%s>{%s};\n", name, $0
    if (hands_out) printf "template <>\ninline constexpr bool hands_out<%s> = true;\n", name
}' "$out/declared" >"$out/extents.inc"
unnamed " plain " "$rows"/*_calls.cpp >"$out/plain.inc"
unnamed " session " "$rows"/*_calls.cpp >"$out/session.inc"
unnamed " counted " "$rows"/counts_test.cpp "$rows"/whole_calls.h >"$out/counted.inc"

left=$(unnamed ' ' "$rows"/*_calls.cpp "$rows"/*.h "$rows"/../support/curve_record.h \
    "$out"/plain.inc "$out"/session.inc)
if [ -n "$left" ]; then
    printf 'no row of the interface table for:\n%s\n' "$left"
    exit 1
fi
