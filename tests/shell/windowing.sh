#!/usr/bin/env bash
# When no window can be opened the game says why in one line and exits 1,
# before Qt would abort (status 134) with a page of plug-in messages, and it
# writes no file. Run from a copy of GAME with a qt.conf that gives Qt a plug-in
# folder without the Wayland plug-in, so the machine's own plug-ins (qt6-wayland
# may be installed) are not seen.
# usage: windowing.sh GAME
set -euo pipefail
game="${1:?usage: windowing.sh GAME}"
scratch="$(mktemp -d)"
trap 'rm -rf "$scratch"' EXIT
mkdir -p "$scratch/bin" "$scratch/plugins/platforms" "$scratch/play"
ln "$game" "$scratch/bin/vorn" 2>/dev/null || cp "$game" "$scratch/bin/vorn"
printf '[Paths]\nPlugins=%s\n' "$scratch/plugins" >"$scratch/bin/qt.conf"

failures=0
# environment | the line expected on the error output
while IFS='|' read -r environment expected; do
  status=0
  # shellcheck disable=SC2086 # the environment is a list of words
  (cd "$scratch/play" && env -i PATH=/usr/bin:/bin HOME="$scratch" $environment "$scratch/bin/vorn" \
    >"$scratch/out" 2>"$scratch/err") || status=$?
  if [ "$status" -ne 1 ] || [ -s "$scratch/out" ] || [ "$(wc -l <"$scratch/err")" -ne 1 ] \
    || ! grep -qE "^$expected\$" "$scratch/err" || [ -n "$(ls -A "$scratch/play")" ]; then
    echo "FAIL: with '$environment': exit status $status (1 expected), error output:"
    cat "$scratch/err"
    failures=$((failures + 1))
  fi
done <<'EOF'
XDG_SESSION_TYPE=x11|vorn: no graphical display found \(neither DISPLAY nor WAYLAND_DISPLAY is set\); start the game from a desktop session
WAYLAND_DISPLAY=wayland-vorn-test|vorn: no window can be opened: Qt's Wayland plug-in is not installed \(Debian package qt6-wayland\) and no X display is set \(DISPLAY\)
EOF
[ "$failures" -eq 0 ] || exit 1
echo "one line and exit status 1 without a display, and on Wayland without the plug-in"
