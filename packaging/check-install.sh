#!/usr/bin/env bash
# Installs the build given as $1 into a scratch prefix and checks that a desktop
# sees a complete game there: program, launcher entry, both icons, AppStream data.
set -euo pipefail
build="${1:?usage: check-install.sh <build folder>}"
prefix="$(mktemp -d)"
trap 'rm -rf "$prefix"' EXIT

cmake --install "$build" --prefix "$prefix" >/dev/null

failures=0
fail() { echo "FAIL: $*"; failures=$((failures + 1)); }

[ -x "$prefix/bin/vorn" ] || fail "bin/vorn is missing or not executable"

desktop="$prefix/share/applications/vorn.desktop"
if [ -f "$desktop" ]; then
  for line in 'Name=Vorn' 'Name[ru]=Тавирен' 'Exec=vorn' 'Icon=vorn' 'Categories=Game;CardGame;'; do
    grep -qxF "$line" "$desktop" || fail "vorn.desktop lacks the line '$line'"
  done
else
  fail "share/applications/vorn.desktop is missing"
fi

svg="$prefix/share/icons/hicolor/scalable/apps/vorn.svg"
if [ -f "$svg" ]; then
  grep -q '<svg' "$svg" || fail "vorn.svg is not an SVG picture"
else
  fail "share/icons/hicolor/scalable/apps/vorn.svg is missing"
fi

png="$prefix/share/icons/hicolor/48x48/apps/vorn.png"
if [ -f "$png" ]; then
  # PNG signature, then the IHDR chunk: width and height as big-endian 32-bit words.
  signature="$(od -An -tx1 -N8 "$png" | tr -d ' \n')"
  [ "$signature" = "89504e470d0a1a0a" ] || fail "vorn.png is not a PNG file"
  size="$(od -An -tu1 -j16 -N8 "$png" | awk '{print $1*16777216+$2*65536+$3*256+$4 "x" $5*16777216+$6*65536+$7*256+$8}')"
  [ "$size" = "48x48" ] || fail "vorn.png is $size pixels, not 48x48"
else
  fail "share/icons/hicolor/48x48/apps/vorn.png is missing"
fi

metainfo="$prefix/share/metainfo/vorn.metainfo.xml"
if [ -f "$metainfo" ]; then
  grep -qF '<launchable type="desktop-id">vorn.desktop</launchable>' "$metainfo" \
    || fail "vorn.metainfo.xml does not launch vorn.desktop"
  grep -qF '<binary>vorn</binary>' "$metainfo" || fail "vorn.metainfo.xml does not provide the binary vorn"
else
  fail "share/metainfo/vorn.metainfo.xml is missing"
fi

if [ "$failures" -ne 0 ]; then
  echo "$failures problem(s) in the installed tree"
  exit 1
fi
echo "installed tree complete: bin/vorn, launcher entry, 48x48 and scalable icons, AppStream data"
