#!/bin/sh
# Copies the files the game opens as plain files (not through the archive)
# from the data tree into the staged game directory.
set -e
src=$1; dst=$2
for f in lang.ini; do
  if [ -f "$src/$f" ]; then cp -p "$src/$f" "$dst/$f"; fi
done
