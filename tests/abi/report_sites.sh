#!/bin/sh
# report_sites.sh SOURCES - each report of the library has a number of its own within its module: no
# two files that report share a module and a part of it, and no two sites share a line.
set -eu
LC_ALL=C
export LC_ALL

find "$1" \( -name '*.cpp' -o -name '*.h' \) -exec awk '
function text_between(opening, closing,    start) {
    start = index($0, opening) + length(opening)
    return substr($0, start, index(substr($0, start), closing) - 1)
}
function complain(what) { print where[i] ":" line[i] ": " what; bad = 1 }

{ sub(/\/\/.*/, "") }
/constexpr Module [a-z0-9_]+\{"/ {
    name = text_between("constexpr Module ", "{")
    if (/inline/) shared[name] = text_between("{\"", "\"")
    else own[FILENAME, name] = text_between("{\"", "\"") " 0"
}
/constexpr Module [a-z0-9_]+ = [a-z0-9_]+;/ {
    own[FILENAME, text_between("constexpr Module ", " =")] = text_between("= ", ";") " 0"
}
/constexpr Module [a-z0-9_]+ = [a-z0-9_]+\.part/ {
    own[FILENAME, text_between("constexpr Module ", " =")] = \
        text_between("= ", ".part(") " " text_between(".part(", ")")
}
!/#define/ {
    rest = $0
    while (match(rest, /ZTMATH_ASSERT\([a-z0-9_]+|[a-z0-9_]+\.(raise|internal|note)\(/)) {
        site = substr(rest, RSTART, RLENGTH)
        rest = substr(rest, RSTART + RLENGTH)
        sub(/ZTMATH_ASSERT\(/, "", site)
        sub(/\.(raise|internal|note)\(/, "", site)
        reporter[++sites] = site; where[sites] = FILENAME; line[sites] = FNR
    }
}
END {
    for (i = 1; i <= sites; ++i) {
        module = (where[i], reporter[i]) in own ? own[where[i], reporter[i]] : reporter[i] " 0"
        split(module, part, " ")
        if (part[1] in shared) module = shared[part[1]] " " part[2]
        else if (!((where[i], reporter[i]) in own)) complain("no module is called " reporter[i])
        if (module in holder && holder[module] != where[i])
            complain("shares module and part \"" module "\" with " holder[module])
        holder[module] = where[i]
        if (i > 1 && where[i - 1] == where[i] && line[i - 1] == line[i])
            complain("two sites on one line")
        if (line[i] >= 1000) complain("the numbers of a part end at 999")
    }
    if (sites < 10) { print "only " sites + 0 " sites found: are these the sources?"; bad = 1 }
    exit bad
}
' {} +
