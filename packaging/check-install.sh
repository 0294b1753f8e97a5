#!/usr/bin/env bash
# Checks that a desktop sees a complete game in the tree that `cmake --install`
# made under the prefix $1 (with the programs in $2 below it): both programs and
# their gzipped manual pages, the launcher, the launcher entry, both icons and the
# AppStream data.
set -euo pipefail
prefix="${1:?usage: check-install.sh <installed prefix> <games folder>}"
games="${2:?usage: check-install.sh <installed prefix> <games folder>}"
case "$games" in /*) ;; *) games="$prefix/$games" ;; esac

failures=0
fail() { echo "FAIL: $*"; failures=$((failures + 1)); }

for program in vorn vorn-solve; do
  [ -x "$games/$program" ] || fail "$games/$program is missing or not executable"
  page="$prefix/share/man/man6/$program.6.gz"
  # gzip -n: no name and no time stamp in the header (bytes 3 to 7 are zero).
  [ "$(od -An -tx1 -N8 "$page" 2>/dev/null | tr -d ' \n')" = "1f8b080000000000" ] \
    || fail "share/man/man6/$program.6.gz is missing or not gzipped without a name and time"
done

launcher="$prefix/libexec/vorn/vorn-launcher"
[ -x "$launcher" ] || fail "libexec/vorn/vorn-launcher is missing or not executable"
grep -qxF "exec \"$games/vorn\" \"\$@\"" "$launcher" || fail "the launcher does not start $games/vorn"

desktop="$prefix/share/applications/org.vorn.vorn.desktop"
if [ -f "$desktop" ]; then
  for line in 'Name=Vorn' 'Name[ru]=Тавирен' "Exec=$launcher" 'Icon=vorn' 'Categories=Game;CardGame;'; do
    grep -qxF "$line" "$desktop" || fail "org.vorn.vorn.desktop lacks the line '$line'"
  done
else
  fail "share/applications/org.vorn.vorn.desktop is missing"
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

metainfo="$prefix/share/metainfo/org.vorn.vorn.metainfo.xml"
if [ -f "$metainfo" ]; then
  grep -qF '<launchable type="desktop-id">org.vorn.vorn.desktop</launchable>' "$metainfo" \
    || fail "org.vorn.vorn.metainfo.xml does not launch org.vorn.vorn.desktop"
  grep -qF '<binary>vorn</binary>' "$metainfo" || fail "org.vorn.vorn.metainfo.xml does not provide the binary vorn"
else
  fail "share/metainfo/org.vorn.vorn.metainfo.xml is missing"
fi

if [ "$failures" -ne 0 ]; then
  echo "$failures problem(s) in the installed tree"
  exit 1
fi
echo "installed tree complete: vorn and vorn-solve with manual pages, launcher and its entry, 48x48 and scalable icons, AppStream data"
