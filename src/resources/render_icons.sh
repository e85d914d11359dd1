#!/bin/sh
# Renders svg/*.svg to the pictures that resources.qrc names. Run it after a change of a drawing and commit both.
# Needs rsvg-convert (librsvg2-bin) and convert (imagemagick).
set -eu
cd "$(dirname "$0")"
mkdir -p icons

render() { # name, px
    rsvg-convert --width "$2" --height "$2" --output "icons/$1.png" "svg/$1.svg"
    rsvg-convert --width $((2 * $2)) --height $((2 * $2)) --output "icons/$1@2x.png" "svg/$1.svg"
}

for name in Input Info Zommin Zommout org6 org; do render "$name" 24; done
for name in read write; do render "$name" 20; done
for name in Checkbox_check Checkbox_check_hover Checkbox_uncheck Checkbox_uncheck_hover; do render "$name" 16; done
render ComboBox-downArrow 12

for size in 16 32 48 128; do
    rsvg-convert --width "$size" --height "$size" --output "icons/vendaro-$size.png" svg/vendaro.svg
done

frames=$(mktemp -d)
trap 'rm -r "$frames"' EXIT
for angle in 000 030 060 090 120 150 180 210 240 270 300 330; do
    sed "s/@ANGLE@/$angle/" svg/loading.svg | rsvg-convert --width 32 --height 32 --output "$frames/$angle.png"
done
convert -delay 8 -loop 0 "$frames"/*.png -layers optimize icons/loading.gif
