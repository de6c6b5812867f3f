#!/usr/bin/env bash
# Measures dedicated servers under load, side by side: each server given
# (korvane-server of the build folder if none is) runs on a port of its own
# with a loadgen of its own, all at the same time, so that they share the
# machine's load alike. Prints each loadgen's report, each server's status
# lines and each server's share of a core over the middle of the run. With
# --clients 0 nothing loads the servers: their idle cost.
#
#   tools/measure-server.sh [--build DIR] [--clients N] [--seconds S] [--port P]
#                           [--loadgen-nice N] [SERVER...]
set -euo pipefail

build=build; clients=64; seconds=30; port=17490; niceness=0
while [ $# -gt 0 ]; do
  case $1 in
    --build) build=$2; shift 2 ;;
    --clients) clients=$2; shift 2 ;;
    --seconds) seconds=$2; shift 2 ;;
    --port) port=$2; shift 2 ;;
    --loadgen-nice) niceness=$2; shift 2 ;;
    -*) echo "usage: $0 [--build DIR] [--clients N] [--seconds S] [--port P] [--loadgen-nice N] [SERVER...]" >&2
        exit 2 ;;
    *) break ;;
  esac
done
game=$(cd "$build/game" && pwd)
loadgen=$(cd "$build/tools" && pwd)/loadgen
[ $# -gt 0 ] || set -- "$game/korvane-server"

work=$(mktemp -d /tmp/measure-server-XXXXXX)
trap 'rm -rf "$work"' EXIT
cpuTicks() { awk '{print $14 + $15}' "/proc/$1/stat"; }

echo "$(date -u '+%Y-%m-%d %H:%M UTC'), $(nproc) cores, load average $(cut -d' ' -f1-3 /proc/loadavg)"
servers=(); loads=(); i=0
for server in "$@"; do
  dir=$work/$i; mkdir "$dir"
  ln -s "$game/data.ini" "$game/data.cres" "$dir/"
  server=$(realpath "$server")
  # One status line for the joining, one for the steady load.
  (cd "$dir" && exec "$server" --status $(( seconds / 2 > 1 ? seconds / 2 : 1 )) --port $((port + i))) \
    > "$dir/status.txt" 2>&1 &
  servers+=($!)
  i=$((i + 1))
done
sleep 1
if [ "$clients" -gt 0 ]; then
  for i in "${!servers[@]}"; do
    (cd "$work/$i" && exec nice -n "$niceness" "$loadgen" --address "127.0.0.1:$((port + i))" \
      --clients "$clients" --seconds "$seconds") > "$work/$i/report.txt" 2>&1 &
    loads+=($!)
  done
fi

# The middle of the run: joining is over, and the end is not near.
settle=$((seconds / 3)); span=$((seconds / 2))
sleep "$settle"
before=(); for pid in "${servers[@]}"; do before+=("$(cpuTicks "$pid")"); done
sleep "$span"
for i in "${!servers[@]}"; do
  ticks=$(( $(cpuTicks "${servers[$i]}") - ${before[$i]} ))
  echo "server $i: $(awk -v t="$ticks" -v s="$span" 'BEGIN { printf "%.2f", t / s }')% of a core over ${span} s"
  grep VmRSS "/proc/${servers[$i]}/status" | sed "s/^/server $i: /"
done

status=0
for pid in "${loads[@]}"; do wait "$pid" || status=1; done
for i in "${!servers[@]}"; do
  kill -TERM "${servers[$i]}"
  wait "${servers[$i]}" || { echo "server $i: exit code $?"; status=1; }
  echo "== server $i: $1"; shift || true
  cat "$work/$i/status.txt"
  [ -f "$work/$i/report.txt" ] && grep -v "^ " "$work/$i/report.txt" | grep -v "^client"
done
echo "load average at the end: $(cut -d' ' -f1-3 /proc/loadavg)"
exit $status
