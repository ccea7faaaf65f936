#!/bin/sh
# declared.sh HEADERS ROWS OUT - reads the public headers of a folder and writes for the tests in ROWS,
# into the folder OUT:
#   extents.inc  the numbers in the array that each parameter of a function is, 0 where its header does
#                not tell; beside a record or a list, as many as three of its points have
#   plain.inc    the functions, less those that a row names, whose rows need to know no more than that
#   counted.inc  the functions that take a count, an index or a size, less those that counts_test.cpp
#                names, be it as left out
set -eu
headers=$1 rows=$2 out=$3
mkdir -p "$out"

awk '
BEGIN {
    # Integers that choose, and address nothing.
    choice = "bounded(_[12])?|extrapolate|intersect|normalise|orientation|project|selector|unit|want_corner"
    record = "(const )?(ARC_SPLINE_(1_seg_2d|monge_plane)_t \\*?|BCDF \\*|PNTLST \\*)"
    scalar = "const double |((unsigned )?char|int|double) \\*?|const double \\*(tols|normal)"
    plain_parameter = "^(" scalar "|" record ")[a-zA-Z_0-9]*(\\[[0-9]+\\])?$"
    plain_result = "^(void|int|double|(double|ARC_SPLINE_1_seg_2d_t|BCDF|PNTLST) \\*)$"
    takes_over = "_(free|create(_df)?_from)_"
    of_session = "/(acom|banded|session|tolerance|wcs)[.]h$"
}

function take(text,    name, result, parameters, n, i, of_structure, plain, counted, extents) {
    gsub(/ +/, " ", text)
    sub(/\( /, "(", text)
    match(text, /[A-Za-z_0-9]+\(/)
    name = substr(text, RSTART, RLENGTH - 1)
    result = substr(text, 1, RSTART - 1)
    sub(/ $/, "", result)
    n = split(substr(text, RSTART + RLENGTH), parameters, /, |\)/) - 1
    of_structure = text ~ /\(.*(BCDF|PNTLST) \*/
    plain = result ~ plain_result && name !~ takes_over && FILENAME !~ of_session && \
        !(of_structure && result ~ /^double \*/)
    counted = 0
    extents = ""
    for (i = 1; i <= n; ++i) {
        if (parameters[i] !~ plain_parameter) plain = 0
        if (parameters[i] ~ /^(const int \*|int )[a-z_0-9]+$/ && \
            parameters[i] !~ "^int (" choice ")$") counted = 1
        extents = extents (i > 1 ? ", " : "") \
            (match(parameters[i], /[0-9]+\]$/) ? substr(parameters[i], RSTART, RLENGTH - 1) : \
            of_structure ? 12 : 0)
    }
    print name, plain, counted, extents
}

/^ZTMATH_API / { declaration = "" }
{ declaration = declaration $0 }
/;/ {
    if (declaration ~ /^ZTMATH_API .*\(.*\);/) take(substr(declaration, length("ZTMATH_API ") + 1))
    declaration = ""
}' "$headers"/*.h >"$out/declared"

# unnamed COLUMN FILE... - the functions with a 1 in that column that the files do not name, with commas.
unnamed() {
    column=$1
    shift
    cat "$@" | tr -cs 'A-Za-z_0-9' '\n' |
        awk -v column="$column" 'NR == FNR { named[$1]; next }
            $column && !($1 in named) { printf "%s%s", separator, $1; separator = ",\n" }' - "$out/declared"
}

awk '{
    name = $1
    sub(/^[^ ]+ . . /, "")
    printf "template <>\ninline constexpr Extents extents<%s>{%s};\n", name, $0
}' "$out/declared" >"$out/extents.inc"
unnamed 2 "$rows"/*_calls.cpp >"$out/plain.inc"
unnamed 3 "$rows"/counts_test.cpp "$rows"/whole_calls.h >"$out/counted.inc"
