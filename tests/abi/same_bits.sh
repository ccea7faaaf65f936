#!/bin/sh
# same_bits.sh PROGRAM SOURCES_ROOT LIBSYSS COMPILER... - the program prints the same digests of
# results on its own library and on those built by each compiler without optimisation and with all
# of it, or with the flags that ZTMATH_LEVELS lists. A compiler that is missing is passed over with a
# word. ARITHMETIC holds the flags that the results depend on.
set -eu
program=$1 root=$2 libsyss=$3
shift 3
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT

cd "$root/src"
sources=$(find . -name '*.cpp' -printf '%P\n')
levels='-O0 -O3'
case $(uname -m) in x86_64) levels='-O0 -O3,-march=x86-64-v3' ;; esac
levels=${ZTMATH_LEVELS:-$levels}

# build LIBRARY COMPILER FLAG...: all sources, several at a time.
build() {
    library=$1
    shift
    objects=$work/objects
    rm -rf "$objects"
    mkdir "$objects" "$(dirname "$library")"
    # shellcheck disable=SC2016 # for the shell that xargs starts
    echo "$sources" | xargs -P "$(nproc)" -I '{}' sh -c '
        source=$1 objects=$2
        shift 2
        "$@" -c "$source" -o "$objects/$(echo "$source" | tr / _).o"' compile '{}' "$objects" "$@"
    "$@" -shared -Wl,-soname,libztmath.so.0 "$objects"/*.o "$libsyss" -o "$library"
}

reference=$work/reference
"$program" > "$reference" 2> "$work/reports"
[ -s "$reference" ] || { echo "nothing was computed"; exit 1; }
for compiler in "$@"; do
    command -v "$compiler" > /dev/null || { echo "no $compiler here"; continue; }
    for level in $levels; do
        # shellcheck disable=SC2046,SC2086 # flags are words
        build "$work/$compiler$level/libztmath.so.0" "$compiler" $(echo "$level" | tr , ' ') \
            -std=c++20 -fPIC $ARITHMETIC -I../include -I.
        digests=$work/$compiler$level/digests
        LD_LIBRARY_PATH=$work/$compiler$level "$program" > "$digests" 2> "$work/reports"
        echo "$compiler $level"
        diff "$reference" "$digests"
    done
done
