#!/usr/bin/env bash
# Where the installed game keeps its files, on a virtual X display:
#   1. started through the Exec line of the installed launcher entry, with a
#      scratch HOME that holds a save1.txt and a load.txt of its own and no
#      XDG_DATA_HOME, the game plays in ~/.local/share/vorn: after it is quit
#      through its quit question, ini.txt ("2" CR LF, Russian) lies there, both
#      home files are unchanged byte for byte, the game record lies in the XDG
#      state folder ~/.local/state/vorn, and nothing else appeared in HOME but
#      those two folders with ini.txt and save.txt, and games.sqlite (Qt,
#      fontconfig and the X libraries write nothing there either: the
#      system's font cache serves);
#   2. started from a shell in a scratch folder, it writes ini.txt there.
# usage: check-start-folders.sh <installed prefix> <games folder>
# Exits 77 (skipped) when xvfb-run is not installed.
set -euo pipefail

# check-start-folders.sh --inside FOLDER COMMAND...: under the virtual display,
# start COMMAND in FOLDER, wait for its window, choose Quit on the menu bar with the keyboard (Alt, Left
# to the last item, Return), answer the question with Return (its default
# button is Yes) and wait for the game to end.
if [ "${1-}" = --inside ]; then
  cd "$2"
  shift 2
  "$@" &
  pid=$!
  windows() { xdotool search --onlyvisible --pid "$pid" 2>/dev/null || true; }
  main=""
  for _ in $(seq 300); do main="$(windows | head -n1)"; [ -n "$main" ] && break; sleep 0.1; done
  [ -n "$main" ] || { echo "FAIL: no window of '$*' within 30 s"; kill "$pid"; exit 1; }
  # The focus can be refused while the window is still being set up.
  for _ in $(seq 50); do xdotool windowfocus --sync "$main" 2>/dev/null && break; sleep 0.2; done
  sleep 1
  xdotool key alt key Left key Return
  question=""
  for _ in $(seq 300); do
    question="$(windows | grep -vx "$main" | head -n1)"
    [ -n "$question" ] && break
    sleep 0.1
  done
  [ -n "$question" ] || { echo "FAIL: '$*' asked no quit question"; kill "$pid"; exit 1; }
  for _ in $(seq 50); do xdotool windowfocus --sync "$question" 2>/dev/null && break; sleep 0.2; done
  sleep 0.5
  xdotool key Return
  for _ in $(seq 300); do kill -0 "$pid" 2>/dev/null || break; sleep 0.1; done
  if kill -0 "$pid" 2>/dev/null; then echo "FAIL: '$*' still runs after Yes"; kill "$pid"; exit 1; fi
  wait "$pid"
  exit
fi

prefix="${1:?usage: check-start-folders.sh <installed prefix> <games folder>}"
games="${2:?usage: check-start-folders.sh <installed prefix> <games folder>}"
case "$games" in /*) ;; *) games="$prefix/$games" ;; esac

command -v xvfb-run >/dev/null || { echo "SKIP: xvfb-run is not installed"; exit 77; }
command -v xdotool >/dev/null || { echo "FAIL: xdotool is not installed (scripts/deps)"; exit 1; }

scratch="$(mktemp -d)"
trap 'rm -rf "$scratch"' EXIT
home="$scratch/home"
mkdir -p "$home" "$scratch/runtime" "$scratch/shell"
chmod 700 "$scratch/runtime"
printf ' 1, 2, 3\r\nhome save1\r\n' >"$home/save1.txt"
printf ' 4, 5, 6\r\nhome load\r\n' >"$home/load.txt"
cp "$home/save1.txt" "$scratch/save1.expected"
cp "$home/load.txt" "$scratch/load.expected"

failures=0
fail() { echo "FAIL: $*"; failures=$((failures + 1)); }

# play FOLDER COMMAND...: one game, started and quit as above, in a clean
# environment whose HOME is the scratch one (the sanitizers' settings of a
# sanitizer build pass through, less leak checking).
play() {
  local folder="$1" name
  local -a pass=()
  shift
  for name in LSAN_OPTIONS UBSAN_OPTIONS; do
    [ -n "${!name-}" ] && pass+=("$name=${!name}")
  done
  # A real X display wakes system libraries (D-Bus, fontconfig) that leave
  # memory behind at exit; the game's own leaks are the offscreen tests' job.
  pass+=("ASAN_OPTIONS=${ASAN_OPTIONS:+$ASAN_OPTIONS:}detect_leaks=0")
  # xvfb-run -a counts up from -n to a display number whose lock file is free;
  # a random start keeps clear of virtual displays that others on the machine
  # run where their lock files cannot be seen.
  env -i HOME="$home" PATH=/usr/bin:/bin LANG=C.UTF-8 XDG_RUNTIME_DIR="$scratch/runtime" "${pass[@]}" \
    timeout 90 xvfb-run -a -n $((200 + RANDOM % 4000)) -s "-screen 0 1280x1024x24 -noreset" "$0" --inside "$folder" "$@"
}

desktop="$prefix/share/applications/org.vorn.vorn.desktop"
exec_line="$(sed -n 's/^Exec=//p' "$desktop")"
[ -n "$exec_line" ] || { echo "FAIL: no Exec line in $desktop"; exit 1; }
# The entry has no field codes and no quoting: its words are the command.
# Started from the menu, the process's folder is whatever the session's is: /.
read -r -a command <<<"$exec_line"
play / "${command[@]}" || fail "the game started from the launcher entry did not end through its quit question"

data="$home/.local/share/vorn"
[ "$(od -An -c "$data/ini.txt" 2>/dev/null | tr -d ' ')" = '2\r\n' ] \
  || fail "$data/ini.txt is not \"2\" CR LF"
cmp -s "$home/save1.txt" "$scratch/save1.expected" || fail "the home folder's save1.txt changed"
cmp -s "$home/load.txt" "$scratch/load.expected" || fail "the home folder's load.txt changed"
[ -f "$home/.local/state/vorn/games.sqlite" ] || fail "no game record in ~/.local/state/vorn"
# Everything in HOME now, less the two home files and what the game may make.
unexpected="$(cd "$home" && find . -mindepth 1 | sort \
  | grep -vxE '\./(save1\.txt|load\.txt|\.local|\.local/share|\.local/share/vorn|\.local/share/vorn/(ini|save)\.txt)' \
  | grep -vxE '\./\.local/state(/vorn(/games\.sqlite(-wal|-shm)?)?)?' \
  || true)"
[ -z "$unexpected" ] || fail "unexpected files in HOME: $(echo "$unexpected" | tr '\n' ' ')"

play "$scratch/shell" "$games/vorn" || fail "the game started from a shell did not end through its quit question"
[ "$(od -An -c "$scratch/shell/ini.txt" 2>/dev/null | tr -d ' ')" = '2\r\n' ] \
  || fail "the game started from a shell did not write ini.txt (\"2\" CR LF) into its folder"

if [ "$failures" -ne 0 ]; then
  echo "$failures problem(s)"
  exit 1
fi
echo "from the menu: ~/.local/share/vorn/ini.txt, home files untouched; from a shell: ini.txt in the current folder"
