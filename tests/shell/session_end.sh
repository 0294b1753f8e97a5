#!/usr/bin/env bash
# The end of a desktop session: SIGTERM or SIGHUP ends the game as Quit does
# after Yes. Each run starts the game in a scratch folder whose save.txt holds a
# stored deal, sends the signal and checks: exit status 0, ini.txt "2" CR LF,
# save1.txt and load.txt gone, save.txt unchanged byte for byte.
#   session_end.sh GAME plain      SIGTERM and SIGHUP to the game at play
#                                  (offscreen, no display needed);
#   session_end.sh GAME question   SIGTERM while the quit question is open, on
#                                  a virtual X display of its own (exits 77,
#                                  skipped, without Xvfb or xdotool).
# A game that never ends meets the test's time limit.
set -euo pipefail
usage="usage: session_end.sh GAME plain|question"
game="$(readlink -f "${1:?$usage}")"
mode="${2:?$usage}"

scratch="$(mktemp -d)"
xvfb=""
trap '[ -z "$xvfb" ] || kill "$xvfb" 2>/dev/null; rm -rf "$scratch"' EXIT
# The game's own settings go to a scratch home, never the user's.
mkdir -p "$scratch/home" "$scratch/runtime"
chmod 700 "$scratch/runtime"
export HOME="$scratch/home" XDG_RUNTIME_DIR="$scratch/runtime"
unset XDG_CONFIG_HOME XDG_DATA_HOME XDG_STATE_HOME XDG_CACHE_HOME
failures=0
fail() { echo "FAIL: $*"; failures=$((failures + 1)); }

# A virtual X display whose number the server picks itself (-displayfd), so
# that no other display on the machine can be taken for it. -noreset: the
# searches for the game's window come and go as clients, and a server that
# reset itself whenever they left could refuse the game's connection meanwhile.
start_display() {
  Xvfb -displayfd 3 -screen 0 1024x768x24 -nolisten tcp -noreset 3>"$scratch/display" 2>/dev/null &
  xvfb=$!
  for _ in $(seq 100); do grep -q . "$scratch/display" 2>/dev/null && break; sleep 0.1; done
  export DISPLAY=":$(head -n1 "$scratch/display")"
}

# open_question PID: open the quit question from the menu bar (Alt, Left to
# Quit, Return). Under a sanitizer the game takes keys late, so the keys go
# again, after Esc, until the question shows.
open_question() {
  local pid="$1" main="" question=""
  windows() { xdotool search --onlyvisible --pid "$pid" 2>/dev/null || true; }
  for _ in $(seq 300); do main="$(windows | head -n1)"; [ -n "$main" ] && break; sleep 0.1; done
  [ -n "$main" ] || { echo "no window within 30 s"; return 1; }
  for _ in $(seq 10); do
    xdotool windowfocus --sync "$main" 2>/dev/null || true
    xdotool key Escape Escape alt Left Return
    for _ in $(seq 30); do
      question="$(windows | grep -vx "$main" | head -n1)"
      [ -n "$question" ] && return 0
      sleep 0.1
    done
  done
  echo "the quit question did not open"
  return 1
}

# run SIGNAL [question]: one game in a fresh folder, ended by SIGNAL.
run() {
  local signal="$1" how="${2:-}" status=0 pid
  local folder="$scratch/$signal$how" what="SIG$signal${2:+ during the quit question}"
  mkdir -p "$folder"
  printf ' 5, 9, 13, 2, 6, 10, 14, 3, 7, 11, 15, 4, 8, 12, 16, 17, 18, 19, 20, 21, 22, 23, 24, 25, 26, 27, 28, 29, 30, 31, 32, 33, 34, 35, 36, 37, 38, 39, 40, 41, 42, 43, 44, 45, 46, 47, 48, 49, \xcf\xf0\xee\xe1\xe0, \r\n' \
    >"$folder/save.txt"
  cp "$folder/save.txt" "$scratch/save.expected"
  if [ "$how" = question ]; then
    # A real X display wakes system libraries that leave memory behind at exit;
    # leaks of the game's own code are the offscreen runs' job.
    (cd "$folder" && ASAN_OPTIONS="${ASAN_OPTIONS:+$ASAN_OPTIONS:}detect_leaks=0" QT_QPA_PLATFORM=xcb exec "$game") &
    pid=$!
    local reason
    if ! reason="$(open_question "$pid")"; then
      fail "$what: $reason"
      kill -KILL "$pid"
    fi
  else
    (cd "$folder" && QT_QPA_PLATFORM=offscreen exec "$game") &
    pid=$!
    # load.txt is made while the window is loaded, after the signals are caught.
    for _ in $(seq 300); do [ -f "$folder/load.txt" ] && break; sleep 0.1; done
  fi
  kill -"$signal" "$pid" 2>/dev/null || true
  wait "$pid" || status=$?
  [ "$status" -eq 0 ] || fail "$what: exit status $status"
  [ "$(od -An -c "$folder/ini.txt" 2>/dev/null | tr -d ' ')" = '2\r\n' ] || fail "$what: ini.txt is not \"2\" CR LF"
  for file in save1.txt load.txt; do
    [ ! -e "$folder/$file" ] || fail "$what: $file is left"
  done
  cmp -s "$folder/save.txt" "$scratch/save.expected" || fail "$what: save.txt changed"
}

case "$mode" in
  plain)
    run TERM
    run HUP
    ;;
  question)
    command -v Xvfb >/dev/null && command -v xdotool >/dev/null \
      || { echo "SKIP: Xvfb or xdotool is not installed"; exit 77; }
    start_display
    run TERM question
    ;;
  *) echo "$usage" >&2; exit 2 ;;
esac
[ "$failures" -eq 0 ] || exit 1
echo "ended as by Quit: exit 0, ini.txt written, save1.txt and load.txt removed, save.txt unchanged"
