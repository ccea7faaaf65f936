#!/bin/sh
# state.sh OBJECTS LIBRARY - the objects, listed in a file, run nothing when loaded and keep nothing
# for each thread; the library built of them runs the toolchain's own start function only.
set -eu
objects=$1 library=$2
status=0

[ -s "$objects" ] || { echo "no objects"; exit 1; }
while read -r object; do
    if "$READELF" -SW "$object" | grep -E '\.(init_array|preinit_array|ctors|fini_array|dtors|tdata|tbss)'; then
        echo "above: in $object"
        status=1
    fi
done < "$objects"

if "$READELF" -lW "$library" | grep -w TLS; then
    echo "above: thread-local data in $library"
    status=1
fi
entries=$("$READELF" -dW "$library" | sed -n 's/.*(INIT_ARRAYSZ) *\([0-9]*\).*/\1/p')
[ "$entries" = 8 ] || { echo "$library has start functions of its own: $entries bytes of them"; status=1; }
exit $status
