#!/usr/bin/env bash
# Counts the instructions of one server frame with 64 (or N) players under
# callgrind, a figure that does not depend on the machine's load: the frame
# in which every player's snapshot goes out, the ordinary frame, and one
# round of a player's snapshot to everybody. The frames count only those the
# benchmark times, not the ones that bring the players in; the rounds are
# averaged over the whole run.
#
#   tools/count-server-frame.sh [--build DIR] [--players 8|64]
set -euo pipefail

build=build; players=64
while [ $# -gt 0 ]; do
  case $1 in
    --build) build=$2; shift 2 ;;
    --players) players=$2; shift 2 ;;
    *) echo "usage: $0 [--build DIR] [--players 8|64]" >&2; exit 2 ;;
  esac
done
bench=$(cd "$build/tests" && pwd)/bench_server_frame
source=$(cd "$(dirname "$0")/../tests/bench" && pwd)/server_frame.cpp
work=$(mktemp -d /tmp/count-server-frame-XXXXXX)
trap 'rm -rf "$work"' EXIT

# "N (x%) => ...Server::tick(float) (Kx)" under the timed line of the source.
perFrame() {
  callgrind_annotate --inclusive=yes "$1" "$source" 2>/dev/null |
    grep -A1 'host.server.tick(FRAME);' | grep 'Server::tick' |
    sed -E 's/^ *([0-9,]+) .*\(([0-9,]+)x\)$/\1 \2/' | tr -d , |
    awk '{ printf "%d instructions per frame over %d frames\n", $1 / $2, $2 }'
}

# "N (x%) * ...sendCharacterState(int)" with its calls on the caller's line.
perRound() {
  callgrind_annotate --tree=caller --inclusive=yes "$1" 2>/dev/null |
    grep -B1 '\*  .*Server::sendCharacterState' | head -1 |
    sed -E 's/^ *([0-9,]+) .*\(([0-9,]+)x\).*$/\1 \2/' | tr -d , |
    awk '{ printf "%d instructions per round of one player to everybody over %d rounds\n", $1 / $2, $2 }'
}

for kind in AllSnapshots Ordinary; do
  (cd "$build/tests" && SDL_AUDIODRIVER=dummy valgrind --tool=callgrind \
    --callgrind-out-file="$work/$kind.out" "$bench" --benchmark_filter="$kind/$players\$") \
    > "$work/$kind.log" 2>&1 || { cat "$work/$kind.log"; exit 1; }
  echo "$kind/$players: $(perFrame "$work/$kind.out")"
done
echo "AllSnapshots/$players: $(perRound "$work/AllSnapshots.out")"
