#!/usr/bin/env bash
# SPDX-License-Identifier: GPL-3.0-or-later
# The manual and the reference notes of a build: small, with drawings as drawings and every screenshot dot by dot.
#   documents_test.sh BUILD
set -uo pipefail
cd "$(dirname "$0")/../.."
. tests/packaging/checks.sh
build=$(cd "$1" && pwd)
scratch=$(mktemp -d)
trap 'rm -rf "$scratch"' EXIT
manual=$build/bin/TARVOKOL.PDF
notes="PillarStrength AbutmentLoad SizingEquations UnitsConversions WorkedDesign"
largest_manual=1000000
largest_note=100000

# pictures PDF: a line per place of a picture: page, number, kind, width, height, colours, parts, bits, encoding, ..., object
pictures() { pdfimages -list "$1" | tail -n +3; }

test_documents_are_small() {
    local name size
    size=$(stat -c %s "$manual")
    [ "$size" -lt $largest_manual ] || fail "the manual has $size bytes"
    for name in $notes; do
        size=$(stat -c %s "$build/bin/$name.pdf")
        [ "$size" -lt $largest_note ] || fail "$name has $size bytes"
    done
}

test_documents_are_whole() {
    local pdf
    for pdf in "$manual" $(printf "$build/bin/%s.pdf " $notes); do
        clean "pages of ${pdf##*/}" pdftoppm -r 20 -gray "$pdf" "$scratch/page"
    done
}

# The windows alone are pictures: each is in the file once, exactly.
test_only_windows_are_pictures() {
    local name shown
    shown=$(grep -ho 'images/[A-Za-z_]*\.png' resources/help/*.htm | sort -u | wc -l)
    same "pictures of the manual" "$shown" "$(pictures "$manual" | awk '{ print $11 }' | sort -u | wc -l)"
    same "their encoding" image "$(pictures "$manual" | awk '{ print $9 }' | sort -u)"
    for name in $notes; do
        same "pictures of $name" "" "$(pictures "$build/bin/$name.pdf")"
    done
}

test_words_of_drawings_are_found() {
    holds "the manual" "$(pdftotext "$manual" -)" "Plan: holes driven from the highwall into the coal" \
        "Quantile of normal" "Share below" "below it"
    holds "a note" "$(pdftotext "$build/bin/PillarStrength.pdf" -)" "Section across the holes"
}

test_bookmarks_name_the_parts() {
    local outline part
    outline=$(pdftohtml -xml -i -stdout "$manual")
    while read -r part; do
        holds bookmarks "$outline" ">$part</item>"
    done < <(sed -n 's/^part //p' resources/manual/manual.txt)
}

# set_page BODY OUT.pdf
set_page() {
    printf '<html><head><title>A page</title></head><body>%s</body></html>\n' "$1" > "$scratch/page.htm"
    QT_QPA_PLATFORM=offscreen QT_HASH_SEED=0 XDG_RUNTIME_DIR=$scratch \
        "$build/resources/html_to_pdf" "$scratch/page.htm" -o "$2" || fail "setting a page"
}

# differing_dots A B
differing_dots() { compare -metric AE "$1" "$2" null: 2>&1; }

test_pictures_are_kept_exactly() {
    convert -size 30x20 xc:red -fill blue -draw 'rectangle 3,3 9,9' -fill '#010203' -draw 'point 29,19' "$scratch/few.png"
    convert -seed 1 -size 64x64 plasma:red-green -depth 8 "$scratch/many.png"
    [ "$(identify -format %k "$scratch/many.png")" -gt 256 ] || fail "the picture has too few colours"
    set_page '<p><img src="few.png" alt="" /></p><p><img src="many.png" alt="" /></p><p><img src="few.png" alt="" /></p>' \
        "$scratch/pictures.pdf"
    same "colours" "index rgb index" "$(pictures "$scratch/pictures.pdf" | awk '{ print $6 }' | xargs)"
    same "each once" 2 "$(pictures "$scratch/pictures.pdf" | awk '{ print $11 }' | sort -u | wc -l)"
    pdfimages -png "$scratch/pictures.pdf" "$scratch/found"
    same "few colours" 0 "$(differing_dots "$scratch/few.png" "$scratch/found-000.png")"
    same "many colours" 0 "$(differing_dots "$scratch/many.png" "$scratch/found-001.png")"
}

# 162 mm are 459 points: 100 dots per inch of a picture 638 dots wide.
test_pictures_are_as_wide_as_told_and_no_wider_than_the_text() {
    convert -size 638x20 xc:red "$scratch/wide.png"
    set_page '<p><img src="wide.png" alt="" width="2000" /></p><p><img src="wide.png" alt="" width="96" /></p>' "$scratch/wide.pdf"
    same "dots per inch" "100 638" "$(pictures "$scratch/wide.pdf" | awk '{ print $13 }' | xargs)"
}

test_letters_of_a_drawing_stand_in_their_place() {
    local where
    cat > "$scratch/letters.svg" << 'SVG'
<svg xmlns="http://www.w3.org/2000/svg" width="480" height="96" viewBox="0 0 960 192">
<g transform="matrix(2,0,0,2,40,20)"><text x="100" y="30" font-family="Liberation Sans" font-size="12" fill="#000000">left</text></g>
<text x="480" y="80" font-family="Liberation Sans" font-size="24" text-anchor="middle" fill="#000000">mid&amp;dle</text>
<text x="960" y="80" font-family="Liberation Sans" font-size="24" text-anchor="end" fill="#000000">right</text>
</svg>
SVG
    set_page '<p><img src="letters.svg" alt="" /></p>' "$scratch/letters.pdf"
    where=$(pdftotext -bbox "$scratch/letters.pdf" - | sed -n 's/.*<word xMin="\([0-9.]*\)".*xMax="\([0-9.]*\)".*>\(left\|mid.*\|right\)<.*/\3 \1 \2/p')
    # The text starts at 68.03 points; a unit of the drawing is 0.375 points.
    same "start" "left 158" "$(awk '/^left/ { printf "%s %.0f", $1, $2 }' <<< "$where")"
    same "middle" "mid&amp;dle 248" "$(awk '/^mid/ { printf "%s %.0f", $1, ($2 + $3) / 2 }' <<< "$where")"
    same "end" "right 428" "$(awk '/^right/ { printf "%s %.0f", $1, $3 }' <<< "$where")"
}

test_a_page_is_the_same_whenever_it_is_set() {
    local body='<p>Text <img src="dot.png" alt="" /></p>'
    convert -size 8x8 xc:red "$scratch/dot.png"
    SOURCE_DATE_EPOCH=1376956800 set_page "$body" "$scratch/first.pdf"
    SOURCE_DATE_EPOCH=1376956800 TZ=Pacific/Kiritimati set_page "$body" "$scratch/second.pdf"
    cmp "$scratch/first.pdf" "$scratch/second.pdf" || fail "two settings differ"
    holds "date" "$(TZ=UTC pdfinfo "$scratch/first.pdf")" "Tue Aug 20 00:00:00 2013"
    set_page "$body" "$scratch/undated.pdf"
    [[ $(pdfinfo "$scratch/undated.pdf") != *Date* ]] || fail "a date of the build"
}

unset SOURCE_DATE_EPOCH
for name in $(declare -F | sed -n 's/^declare -f \(test_.*\)/\1/p'); do
    echo "$name"
    $name
done
finish
