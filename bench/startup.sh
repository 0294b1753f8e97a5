#!/usr/bin/env bash
# Start-up of the game against an empty Qt main window built the same way,
# measured from outside the programs.
#   bench/startup.sh [runs]          (default 20 runs of each program)
# Both programs run on one virtual X display of their own (xvfb-run, xcb
# platform) in a scratch folder. bench/window_probe starts each one and times,
# from the fork, the mapping of its main window and the first complete frame
# drawn into it; it then ends the program and reads its peak resident memory.
# After a warm-up run of each, the two programs alternate.
# Goals: median start-up of the game at most 1.3 times the empty window's, and a
# peak RSS below 60 MiB. These are figures, not tests: ./check does not run this.
# VORN_BUILD names another build folder (default: build/).
set -euo pipefail
root="$(cd "$(dirname "$0")/.." && pwd)"
build="${VORN_BUILD:-$root/build}"
self="$root/bench/startup.sh"

# Inside the virtual display: warm up, then alternate the two programs; every
# run appends "<program> <map µs> <paint µs> <peak RSS KiB>" to the figures.
if [ "${1:-}" = "--measure" ]; then
  runs="$2" probe="$3" game="$4" empty="$5" out="$6" work="$7"
  export QT_QPA_PLATFORM=xcb
  # Qt wants a private runtime folder; without one it says so on every run.
  export XDG_RUNTIME_DIR="$work/runtime"
  mkdir -p -m 0700 "$XDG_RUNTIME_DIR"
  # The game's own settings and its record go to scratch folders, as on a
  # first start; the player's are never touched.
  export XDG_CONFIG_HOME="$work/config" XDG_STATE_HOME="$work/state"
  mkdir -p "$work/play"
  one() {
    if ! "$probe" "$work/play" "$2" 2>>"$work/messages.txt" >"$work/figure.txt"; then
      echo "bench/startup.sh: no window measured for $2; the messages:" >&2
      tail -n 20 "$work/messages.txt" >&2
      exit 1
    fi
    echo "$1 $(cat "$work/figure.txt")"
  }
  one game "$game" >/dev/null
  one empty "$empty" >/dev/null
  for ((i = 0; i < runs; i++)); do
    one game "$game" >>"$out"
    one empty "$empty" >>"$out"
  done
  exit 0
fi

runs="${1:-20}"
if ! [[ "$runs" =~ ^[0-9]+$ ]] || [ "$runs" -lt 1 ] || [ "$runs" -gt 1000 ]; then
  echo "usage: bench/startup.sh [runs]   (runs: a whole number from 1 to 1000)" >&2
  exit 2
fi

"$root/scripts/deps"
cmake -S "$root" -B "$build" -G Ninja -DVORN_GUI=ON -DVORN_BENCH=ON >/dev/null
cmake --build "$build" --parallel 2 --target vorn empty_window window_probe
game="$build/shell/vorn"
empty="$build/bench/empty_window"
probe="$build/bench/window_probe"

work="$(mktemp -d)"
trap 'rm -rf "$work"' EXIT
figures="$work/figures.txt"
: >"$figures"
xvfb-run -a -s "-screen 0 1280x1024x24 -nolisten tcp" \
  bash "$self" --measure "$runs" "$probe" "$game" "$empty" "$figures" "$work"

awk -v runs="$runs" '
  function median(a, n,   i, j, t) {
    for (i = 2; i <= n; i++) { t = a[i]; for (j = i - 1; j >= 1 && a[j] > t; j--) a[j + 1] = a[j]; a[j + 1] = t }
    return n % 2 ? a[(n + 1) / 2] : (a[n / 2] + a[n / 2 + 1]) / 2
  }
  { k = ++n[$1]; mapped[$1, k] = $2; painted[$1, k] = $3; if ($4 > rss[$1]) rss[$1] = $4 }
  END {
    for (p in n) {
      for (i = 1; i <= n[p]; i++) t[i] = mapped[p, i]
      map[p] = median(t, n[p]) / 1000
      for (i = 1; i <= n[p]; i++) t[i] = painted[p, i]
      paint[p] = median(t, n[p]) / 1000
    }
    printf "Start-up from outside, %d alternating runs each (Xvfb, QT_QPA_PLATFORM=xcb)\n", runs
    printf "  %-14s %14s %16s %14s\n", "program", "mapped ms", "first frame ms", "peak RSS MiB"
    printf "  %-14s %14.1f %16.1f %14.1f\n", "vorn", map["game"], paint["game"], rss["game"] / 1024
    printf "  %-14s %14.1f %16.1f %14.1f\n", "empty window", map["empty"], paint["empty"], rss["empty"] / 1024
    printf "  (medians of the times; the highest peak RSS of all runs)\n"
    ratio = map["game"] / map["empty"]
    printf "  ratio vorn / empty window, mapped: %.2f  (goal <= 1.3: %s)\n", ratio, ratio <= 1.3 ? "met" : "NOT met"
    printf "  ratio vorn / empty window, first frame: %.2f\n", paint["game"] / paint["empty"]
    printf "  peak RSS of vorn: %.1f MiB  (goal < 60 MiB: %s)\n", rss["game"] / 1024, rss["game"] / 1024 < 60 ? "met" : "NOT met"
  }' "$figures"
