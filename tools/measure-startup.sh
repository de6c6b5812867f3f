#!/usr/bin/env bash
# Times the start of the staged game to its first drawn menu frame, and in
# turn with it the start of a bare SDL window with an OpenGL context to its
# first swap: the part of the start-up that is the machine's and its GL
# driver's, whatever the game does. Runs alternate, so that both see the
# machine's load alike. Run it under a display, e.g.
#
#   xvfb-run -a -s "-screen 0 1024x768x24 -noreset" tools/measure-startup.sh [--build DIR] [--runs N]
set -euo pipefail

build=build; runs=10
while [ $# -gt 0 ]; do
  case $1 in
    --build) build=$2; shift 2 ;;
    --runs) runs=$2; shift 2 ;;
    *) echo "usage: $0 [--build DIR] [--runs N]" >&2; exit 2 ;;
  esac
done
game=$(cd "$build/game" && pwd)
work=$(mktemp -d /tmp/measure-startup-XXXXXX)
trap 'rm -rf "$work"' EXIT

cat > "$work/bare.c" <<'EOF'
#include <SDL/SDL.h>
#include <GL/gl.h>
#include <stdio.h>
int main(void) {
    if (SDL_Init(SDL_INIT_VIDEO) < 0) return 1;
    SDL_GL_SetAttribute(SDL_GL_SWAP_CONTROL, 1);
    if (!SDL_SetVideoMode(800, 600, 32, SDL_OPENGL)) return 1;
    glClear(GL_COLOR_BUFFER_BIT);
    SDL_GL_SwapBuffers();
    puts("swapped");
    fflush(stdout);
    SDL_Delay(60000);
    return 0;
}
EOF
# shellcheck disable=SC2046
cc -O2 -o "$work/bare" "$work/bare.c" $(sdl-config --cflags --libs) -lGL

# The waiting forks nothing, so that it takes as little of the processor
# from what it times as it can: the clock, the read and the pause are the
# shell's own.
mkfifo "$work/pause"
exec {pause}<>"$work/pause"
now() { echo $(( ${EPOCHREALTIME/./} / 1000 )); }
# Milliseconds from the start of a program in the background until `file` holds `text`.
timeUntil() {
  local file=$1 text=$2; shift 2
  local start; start=$(now)
  "$@" > /dev/null 2>&1 &
  local pid=$!
  local seen=
  until [[ $seen == *"$text"* ]]; do
    kill -0 "$pid" 2>/dev/null || { echo "$1 ended before $text" >&2; exit 1; }
    read -r -t 0.001 -u "$pause" || true
    [ -f "$file" ] && { IFS= read -r -d '' seen < "$file" || true; }
  done
  echo $(( $(now) - start ))
  kill -KILL "$pid"; wait "$pid" 2>/dev/null || true
}

median() { sort -n | awk '{ v[NR] = $1 } END { print v[int((NR + 1) / 2)] }'; }

echo "$(date -u '+%Y-%m-%d %H:%M UTC'), $(nproc) cores, load average $(cut -d' ' -f1-3 /proc/loadavg)"
export SDL_AUDIODRIVER=dummy
for run in $(seq "$runs"); do
  dir=$work/$run; mkdir "$dir"
  ln -s "$game/korvane" "$game/data.ini" "$game/data.cres" "$game/lang.ini" "$dir/"
  (cd "$dir" && timeUntil log.txt "main: pierwsza klatka" ./korvane) >> "$work/game.txt"
  (cd "$dir" && timeUntil swapped.txt swapped sh -c "exec '$work/bare' > swapped.txt") >> "$work/bare.txt"
done
echo "game to its first frame, ms: $(sort -n "$work/game.txt" | tr '\n' ' ')"
echo "bare window to its first swap, ms: $(sort -n "$work/bare.txt" | tr '\n' ' ')"
echo "medians: game $(median < "$work/game.txt") ms, bare window $(median < "$work/bare.txt") ms"
echo "load average at the end: $(cut -d' ' -f1-3 /proc/loadavg)"
