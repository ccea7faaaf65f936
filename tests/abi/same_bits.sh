#!/bin/sh
# same_bits.sh PROGRAM SOURCES_ROOT LIBSYSS - the program prints the same digests of results on the library
# it is linked with and on those built by other compilers and at other levels of optimisation: those of
# ZTMATH_BUILDS, each a compiler and its flags joined by commas. A compiler that is missing is passed over
# with a word. ARITHMETIC holds the flags that the results depend on.
set -eu
program=$1 root=$2 libsyss=$3
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT

cd "$root/src"
sources=$(find . -name '*.cpp' -printf '%P\n')
builds='g++,-O0 clang++,-O2'
case $(uname -m) in x86_64) builds="$builds g++,-O3,-march=x86-64-v3" ;; esac
builds=${ZTMATH_BUILDS:-$builds}

# build LIBRARY COMPILER FLAG...: all sources, several at a time.
build() {
    library=$1
    shift
    objects=$(dirname "$library")
    mkdir "$objects"
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
for flags in $builds; do
    compiler=${flags%%,*}
    command -v "$compiler" > /dev/null || { echo "no $compiler here"; continue; }
    # shellcheck disable=SC2046,SC2086 # flags are words
    build "$work/$flags/libztmath.so.0" $(echo "$flags" | tr , ' ') \
        -std=c++20 -fPIC $ARITHMETIC -I../include -I.
    LD_LIBRARY_PATH=$work/$flags "$program" > "$work/digests" 2> "$work/reports"
    echo "$flags"
    diff "$reference" "$work/digests"
done
