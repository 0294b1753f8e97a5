#!/usr/bin/env bash
# Start-up of the game against an empty Qt main window built the same way.
#   bench/startup.sh [runs]          (default 15 runs of each program)
# Both programs run on one virtual X display (xcb platform) with
# VORN_QUIT_AFTER_SHOW=1, which makes each quit right after its first window is
# shown; a run is timed from the process start to its exit, alternating the two
# programs, and /usr/bin/time -v reports each run's peak resident memory.
# Goals: median start-up of the game at most 1.5 times the empty window's, and a
# peak RSS below 60 MiB. These are figures, not tests: ./check does not run this.
# VORN_BUILD names another build folder (default: build/).
set -euo pipefail
root="$(cd "$(dirname "$0")/.." && pwd)"
build="${VORN_BUILD:-$root/build}"
self="$root/bench/startup.sh"

# One timed run of a program, inside the virtual display: prints "<µs> <KiB>".
if [ "${1:-}" = "--run-one" ]; then
  program="$2" work="$3"
  start=$(date +%s%N)
  if ! (cd "$work" && timeout 30 /usr/bin/time -v -o "$work/time.txt" "$program" >/dev/null 2>"$work/stderr.txt"); then
    echo "bench/startup.sh: $program did not quit cleanly after showing its window" \
         "(does it honour VORN_QUIT_AFTER_SHOW=1?); its messages:" >&2
    tail -n 20 "$work/stderr.txt" >&2
    exit 1
  fi
  end=$(date +%s%N)
  kib=$(awk -F': ' '/Maximum resident set size/ {print $2}' "$work/time.txt")
  echo "$(( (end - start) / 1000 )) $kib"
  exit 0
fi

# Inside the virtual display: warm up once, then alternate the two programs.
if [ "${1:-}" = "--measure" ]; then
  runs="$2" game="$3" empty="$4" out="$5"
  work="$(mktemp -d)"
  trap 'rm -rf "$work"' EXIT
  export QT_QPA_PLATFORM=xcb VORN_QUIT_AFTER_SHOW=1
  bash "$self" --run-one "$game" "$work" >/dev/null
  bash "$self" --run-one "$empty" "$work" >/dev/null
  for ((i = 0; i < runs; i++)); do
    figure=$(bash "$self" --run-one "$game" "$work")
    echo "game $figure" >>"$out"
    figure=$(bash "$self" --run-one "$empty" "$work")
    echo "empty $figure" >>"$out"
  done
  exit 0
fi

runs="${1:-15}"
if ! [[ "$runs" =~ ^[0-9]+$ ]] || [ "$runs" -lt 1 ] || [ "$runs" -gt 1000 ]; then
  echo "usage: bench/startup.sh [runs]   (runs: a whole number from 1 to 1000)" >&2
  exit 2
fi

"$root/scripts/deps"
cmake -S "$root" -B "$build" -G Ninja -DVORN_GUI=ON -DVORN_BENCH=ON >/dev/null
cmake --build "$build" --target vorn empty_window
game="$build/shell/vorn"
empty="$build/bench/empty_window"

figures="$(mktemp)"
trap 'rm -f "$figures"' EXIT
xvfb-run -a -s "-screen 0 1280x1024x24 -nolisten tcp" bash "$self" --measure "$runs" "$game" "$empty" "$figures"

awk -v runs="$runs" '
  function median(a, n,   i, j, t) {
    for (i = 2; i <= n; i++) { t = a[i]; for (j = i - 1; j >= 1 && a[j] > t; j--) a[j + 1] = a[j]; a[j + 1] = t }
    return n % 2 ? a[(n + 1) / 2] : (a[n / 2] + a[n / 2 + 1]) / 2
  }
  { n[$1]++; us[$1, n[$1]] = $2; if ($3 > rss[$1]) rss[$1] = $3 }
  END {
    for (p in n) { for (i = 1; i <= n[p]; i++) t[i] = us[p, i]; med[p] = median(t, n[p]) / 1000 }
    printf "Start-up to the first shown window, %d runs each (Xvfb, QT_QPA_PLATFORM=xcb)\n", runs
    printf "  %-14s %10s %14s\n", "program", "median ms", "peak RSS MiB"
    printf "  %-14s %10.1f %14.1f\n", "vorn", med["game"], rss["game"] / 1024
    printf "  %-14s %10.1f %14.1f\n", "empty window", med["empty"], rss["empty"] / 1024
    ratio = med["game"] / med["empty"]
    printf "  ratio vorn / empty window: %.2f  (goal <= 1.5: %s)\n", ratio, ratio <= 1.5 ? "met" : "NOT met"
    printf "  peak RSS of vorn: %.1f MiB  (goal < 60 MiB: %s)\n", rss["game"] / 1024, rss["game"] / 1024 < 60 ? "met" : "NOT met"
  }' "$figures"
