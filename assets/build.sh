#!/bin/sh
# Rebuilds every generated picture and sound under data/ (or under the
# directory given) from the sources in assets/gen. Needs librsvg2-bin,
# imagemagick, espeak-ng, sox, vorbis-tools and fonts-dejavu-core; the game
# and its build need none of them, since the results are committed.
set -e
here=$(cd "$(dirname "$0")" && pwd)
out=${1:-$here/../data}
mkdir -p "$out"
exec python3 -B "$here/gen/build.py" "$out"
