#!/usr/bin/env bash
# Runs a program as a native Wayland client of weston's headless backend, on
# an output of 1100 x 768 pixels, and ends weston after it.
#   under-weston.sh <weston shell module> <Qt's platform plugin folder> <program> [arguments...]
# Exits 77 (skipped) when weston or Qt's Wayland plugin is not installed; in CI
# (CI=true), where ./check installs both, that is a failure.
set -euo pipefail
shell="$1" plugins="$2"
shift 2

missing=()
command -v weston >/dev/null || missing+=(weston)
[ -e "$plugins/libqwayland-generic.so" ] || missing+=(qt6-wayland)
if [ ${#missing[@]} -gt 0 ]; then
  echo "under-weston.sh: not installed: ${missing[*]}"
  [ "${CI:-}" = true ] && exit 1
  exit 77
fi

runtime="$(mktemp -d)"
chmod 700 "$runtime"
export XDG_RUNTIME_DIR="$runtime"
socket="vorn-test-$$"
weston --backend=headless-backend.so --shell="$shell" --socket="$socket" --width=1100 --height=768 \
  --idle-time=0 --no-config >"$runtime/weston.log" 2>&1 &
weston=$!
finish() {
  kill "$weston" 2>/dev/null || true
  wait "$weston" 2>/dev/null || true
  rm -rf "$runtime"
}
trap finish EXIT
for _ in $(seq 100); do
  [ -S "$runtime/$socket" ] && break
  sleep 0.1
done
if ! [ -S "$runtime/$socket" ]; then
  echo "under-weston.sh: weston did not start:"
  cat "$runtime/weston.log"
  exit 1
fi

# A leak checker's stacks reach through the system libraries (scripts/lsan.supp
# names the leaks there), which have no frame pointers.
export LSAN_OPTIONS="${LSAN_OPTIONS:+$LSAN_OPTIONS:}fast_unwind_on_malloc=0"
status=0
WAYLAND_DISPLAY="$socket" QT_QPA_PLATFORM=wayland "$@" || status=$?
[ "$status" -eq 0 ] || { echo "under-weston.sh: weston's log:"; tail -n 20 "$runtime/weston.log"; }
exit "$status"
