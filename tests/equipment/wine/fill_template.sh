#!/bin/sh
# fill_template.sh FILE.reg: fills a new Wine prefix, WINEPREFIX, with Wine's own files, the settings
# in FILE.reg and the fonts; started by prepare.sh where Wine can be called.
set -eu

wineboot -i
wineserver -w
# A registry file in eight bits could not hold every name.
iconv -f UTF-8 -t UTF-16 "$1" >"$WINEPREFIX/settings.reg"
wine regedit /S "Z:$(printf '%s' "$WINEPREFIX/settings.reg" | tr / '\134')"
rm "$WINEPREFIX/settings.reg"
wineserver -k
wineserver -w
grep -q TarvoRaw "$WINEPREFIX/system.reg"
cp /usr/share/fonts/truetype/liberation*/LiberationMono-*.ttf "$WINEPREFIX/drive_c/windows/Fonts/"
