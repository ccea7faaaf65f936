#!/bin/sh
# gallery.sh ROOT PROGRAM FOLDER - the program draws the pictures of the documentation as they are there.
set -eu
root=$1 program=$2 folder=$3

rm -rf "$folder"
"$root/scripts/gallery" "$program" "$folder"
diff -rq "$folder" "$root/docs/gallery"
