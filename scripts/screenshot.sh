#!/usr/bin/env bash
# screenshot.sh: makes docs/images/editor.png: examples/editor/walk.rtf in the editor, beside it in LibreOffice.

# shellcheck source-path=SCRIPTDIR source=lib.sh
source "$(dirname "${BASH_SOURCE[0]}")/lib.sh"

need_packages "${build_packages[@]}" fonts-dejavu-core fonts-liberation imagemagick libreoffice-writer-nogui \
    poppler-utils xauth xvfb
build_preset default orvrtf-editor

sample=$root/examples/editor/walk.rtf
scratch=$(mktemp -d)
trap 'rm -rf "$scratch"' EXIT
export HOME=$scratch XDG_RUNTIME_DIR=$scratch LC_ALL=C.UTF-8

# A shell gets no event when the window is painted, so it waits.
# shellcheck disable=SC2016
xvfb-run -a -s "-screen 0 860x643x24" bash -c '
    "$1" -qwindowgeometry 860x643+0+0 "$2" &
    sleep 5
    import -window root "$3"
    kill $!' bash "$root/build/default/bin/orvrtf-editor" "$sample" "$scratch/editor.png"

logged screenshot-libreoffice soffice --headless --convert-to pdf --outdir "$scratch" "$sample"
pdftoppm -r 104 -singlefile -png "$scratch/walk.pdf" "$scratch/libreoffice"
mkdir -p "$root/docs/images"
montage "$scratch/editor.png" "$scratch/libreoffice.png" -tile 2x1 -geometry +4+4 -gravity north \
    -background gray50 -colors 128 -strip "PNG8:$root/docs/images/editor.png"
say "wrote docs/images/editor.png"
