#!/usr/bin/env bash
# Renders the application icon, data/icons/sumlet.svg, in the sizes that desktops need: data/icons/sumlet-SIZE.png.
# Combines the same pictures into the icon files of a macOS bundle and of a Windows program.
# Run it after a change of the drawing. The repository contains the pictures, so that a build needs no renderer.
set -euo pipefail
source "$(dirname "${BASH_SOURCE[0]}")/setup.sh"

ensure_packages icons
cd "$projectRoot/data/icons"
# In the smallest picture the bars of the equals sign lie on whole pixels, each one pixel high.
sed 's/y="152" \(.*\) height="24"/y="160" \1 height="16"/; s/y="192" \(.*\) height="24"/y="192" \1 height="16"/' sumlet.svg |
  rsvg-convert --width 16 --height 16 --output sumlet-16.png
for size in 24 32 48 64 128 256; do
  rsvg-convert --width "$size" --height "$size" --output "sumlet-$size.png" sumlet.svg
done
png2icns ../macos/sumlet.icns sumlet-{16,32,48,128,256}.png >/dev/null
icotool --create --output ../windows/sumlet.ico sumlet-{16,24,32,48,64}.png --raw=sumlet-256.png
