#!/usr/bin/env bash
# SPDX-License-Identifier: GPL-3.0-or-later
# package_test.sh BUILD: makes the Debian packages of the build and holds them against those who will read them: the desktop,
# the software centre, the shells, man and Debian's own checker.
set -uo pipefail
build=$(realpath "$1")
source=$(cd "$(dirname "$0")/../.." && pwd)
. "$source/tests/packaging/checks.sh"
scratch=$(mktemp -d)
trap 'rm -rf "$scratch"' EXIT
# 31 January 2026, 15:30.
export SOURCE_DATE_EPOCH=1769873400
version=1.3.02+20260131.1530
everything="libtarvokol-dev libtarvokol-engine1 python3-tarvokol tarvokol tarvokol-cli tarvokol-cli-drawing tarvokol-doc"

# Beside the sources, where another package may be in the making. This build has no lines of the source, so there are no
# packages of symbols, and nobody waits for what is packed tightly.
make_packages() {
    local tree=$scratch/tarvokol
    mkdir "$tree"
    cp -r "$source/debian" "$source/packaging" "$source/CHANGELOG.md" "$tree/"
    cd "$tree" && packaging/make_changelog.sh > debian/changelog &&
        TARVOKOL_BUILD="$build" DEB_BUILD_OPTIONS=noautodbgsym DPKG_DEB_COMPRESSOR_LEVEL=1 dpkg-buildpackage --build=binary --no-sign
}
(make_packages) > "$scratch/log" 2>&1 || { cat "$scratch/log"; exit 1; }
# Each by itself in roots/NAME, and all of them as a system with everything has them.
deb() { echo "$scratch/$1"_*.deb; }
root=$scratch/root
mkdir "$scratch/roots"
for name in $everything; do
    dpkg-deb -x "$(deb "$name")" "$scratch/roots/$name"
    dpkg-deb -x "$(deb "$name")" "$root"
done
usr=$root/usr share=$root/usr/share
doc=$share/doc/tarvokol

test_source_gives_these_packages() {
    same packages "$everything" "$(cd "$scratch" && echo *.deb | xargs -n 1 | grep -v dbgsym | sed 's/_.*//' | LC_ALL=C sort | xargs)"
    same "packages of the control file" "$everything" "$(sed -n 's/^Package: //p' "$source/debian/control" | LC_ALL=C sort | xargs)"
    for name in $everything; do same "version of $name" $version "$(dpkg-deb -f "$(deb "$name")" Version)"; done
}

# The library lies where it does below any prefix but /usr: that ./package does better is looked for where its packages are
# installed.
test_is_accepted_by_lintian() {
    local not_here=arch-dependent-file-not-in-arch-specific-directory,pkg-config-unavailable-for-cross-compilation
    clean lintian lintian --no-cfg --allow-root --no-override --fail-on error,warning --tag-display-limit 0 \
        --suppress-tags $not_here "$scratch"/*.deb
}

test_holds_every_file() {
    local file
    for file in bin/tarvokol bin/tarvokol-cli bin/tarvokol-studies libexec/tarvokol/tarvokol-cli-drawing \
        share/applications/tarvokol.desktop share/applications/tarvokol_studies.desktop \
        share/metainfo/example.oltek.tarvokol.metainfo.xml share/mime/packages/tarvokol.xml \
        share/man/man1/tarvokol.1.gz share/man/man1/tarvokol-cli.1.gz share/man/man1/tarvokol-studies.1.gz \
        share/man/man5/tarvokol-project.5.gz \
        share/bash-completion/completions/tarvokol-cli share/zsh/vendor-completions/_tarvokol-cli \
        share/fish/vendor_completions.d/tarvokol-cli.fish share/tarvokol/TARVOKOL.qch \
        share/doc/tarvokol/{copyright,changelog.gz,recipes.md,recipes/cluster_map.py,scale.md,TARVOKOL.PDF,PillarStrength.pdf,AbutmentLoad.pdf} \
        share/doc/tarvokol/{SizingEquations.pdf,UnitsConversions.pdf,WorkedDesign.pdf} \
        share/doc/tarvokol/examples/Contour_Bench_Shallow.TKL share/tarvokol/Contour_Bench_Shallow.TKL \
        include/tarvokol/engine.h lib/python3/dist-packages/tarvokol/__init__.py; do
        [ -s "$usr/$file" ] || fail "not in the packages, empty or a broken link: $file"
    done
    same "schemas" "$(ls "$source/docs/schema")" "$(ls "$doc/schema")"
    same "examples" "$(ls "$source/examples")" "$(ls "$doc/examples")"
}

# has PACKAGE PATTERN...: the package has a file of each pattern below /usr.
has() {
    local name=$1 pattern
    shift
    for pattern in "$@"; do
        compgen -G "$scratch/roots/$name/usr/$pattern" > /dev/null || fail "$name has no $pattern"
    done
}

test_every_file_is_in_one_package() {
    local twice
    twice=$(for name in $everything; do (cd "$scratch/roots/$name" && find . ! -type d); done | sort | uniq -d)
    same "in two packages" "" "$twice"
    has tarvokol bin/tarvokol bin/tarvokol-studies share/applications/tarvokol.desktop share/tarvokol/TARVOKOL.qch
    has tarvokol-cli bin/tarvokol-cli share/tarvokol/Contour_Bench_Shallow.TKL share/doc/tarvokol/examples share/man/man5
    has tarvokol-cli-drawing libexec/tarvokol/tarvokol-cli-drawing
    has tarvokol-doc share/tarvokol/TARVOKOL.PDF share/doc/tarvokol/TARVOKOL.PDF share/doc/tarvokol/schema \
        share/doc-base/tarvokol.manual
    # A build below another prefix than /usr has no folder by architecture.
    (shopt -s globstar; cd "$scratch/roots" && ls libtarvokol-engine1/usr/lib/**/libtarvokol-engine.so.1 \
        libtarvokol-dev/usr/lib/**/{libtarvokol-engine.so,tarvokolConfig.cmake,tarvokol-engine.pc} \
        python3-tarvokol/usr/lib/python3/dist-packages/tarvokol/_engine.cpython-*.so) > /dev/null ||
        fail "library or module"
}

test_has_icons_of_all_sizes() {
    local size kind
    for kind in apps/tarvokol mimetypes/application-x-tarvokol; do
        [ -s "$share/icons/hicolor/scalable/$kind.svg" ] || fail "no drawing of $kind"
        for size in 16 22 24 32 48 64 128 256; do
            same "$kind" "PNG ${size}x$size" \
                "$(identify -format '%m %wx%h' "$share/icons/hicolor/${size}x$size/$kind.png" 2>&1)"
        done
    done
}

test_desktop_entry_is_valid() {
    local entry
    for entry in "$share"/applications/*.desktop; do
        clean "desktop entry $entry" desktop-file-validate "$entry"
    done
    holds "studies from the main entry" "$(cat "$share/applications/tarvokol.desktop")" "[Desktop Action Studies]" \
        "Exec=tarvokol-studies"
    # A file manager offers the program for a project by this, and hands it over.
    holds "desktop entry" "$(cat "$share/applications/tarvokol.desktop")" $'\nMimeType=application/x-tarvokol;' \
        $'\nExec=tarvokol %f'
}

# Both programs open projects; the main one is who is asked first.
test_projects_open_in_the_main_program() {
    cp -r "$share/applications" "$scratch/applications"
    update-desktop-database "$scratch/applications"
    holds "programs for projects" "$(cat "$scratch/applications/mimeinfo.cache")" \
        "application/x-tarvokol=tarvokol.desktop;tarvokol_studies.desktop;" \
        "application/x-tarvokol-study=tarvokol_studies.desktop;"
}

test_metainfo_is_valid_and_tells_the_releases() {
    local metainfo=$share/metainfo/example.oltek.tarvokol.metainfo.xml
    appstreamcli validate --no-net "$metainfo" > "$scratch/appstream" || { fail metainfo; cat "$scratch/appstream"; }
    same "releases of metainfo and changelog" \
        "$(sed -n 's/^## \[\([0-9.]*\)\] - \(.*\)/\1 \2/p' "$source/CHANGELOG.md")" \
        "$(sed -n 's/.*<release version="\([^"]*\)" date="\([^"]*\)".*/\1 \2/p' "$metainfo")"
    [ "$(grep -c '<screenshot' "$metainfo")" -ge 3 ] || fail "screenshots of the metainfo"
}

test_projects_are_known_by_name_and_content() {
    cp -r "$share/mime" "$scratch/mime"
    clean "type of projects" env XDG_DATA_DIRS="$scratch" update-mime-database "$scratch/mime"
    holds "globs" "$(cat "$scratch/mime/globs2")" "50:application/x-tarvokol:*.tkl" \
        "50:application/x-tarvokol-study:*.tks"
    holds "icons of types" "$(cat "$scratch/mime/icons")" "application/x-tarvokol:application-x-tarvokol"
    # The words that every example begins with, at the file's first byte: their length is two bytes, 12.
    same "begin of a project" "TARVOKOL_101" "$(head -c 12 "$source/examples/Thick_Seam_Pit.TKL")"
    holds "magic" "$(tr '\0' '@' < "$scratch/mime/magic")" $'[60:application/x-tarvokol]\n>0=@\fTARVOKOL_101'
}

test_man_pages_are_clean() {
    local page
    for page in "$share"/man/man?/*.gz; do
        gzip -dc "$page" > "$scratch/$(basename "$page" .gz)"
        clean "$(basename "$page")" mandoc -T lint -W all "$scratch/$(basename "$page" .gz)"
    done
}

# The man page and the completions are made of the help; here the other way round, from what the help shows.
test_command_line_is_told_in_full() {
    local cli=$usr/bin/tarvokol-cli page command option
    page=$(mandoc -T ascii "$share/man/man1/tarvokol-cli.1.gz" | sed 's/.\x08//g')
    for command in $("$cli" --help | sed -n '/^Subcommands:/,$ s/^  \([a-z]*\) .*/\1/p'); do
        for shell in "$page" "$(cat "$share"/bash-completion/completions/tarvokol-cli)" \
            "$(cat "$share"/zsh/vendor-completions/_tarvokol-cli)"; do
            holds "command $command" "$shell" "$command"
            for option in $("$cli" "$command" --help | grep -o -- '--[a-z][a-z-]*' | sort -u); do
                holds "option of $command" "$shell" "$option"
            done
        done
        for option in $("$cli" "$command" --help | grep -o -- '^  \(-., *\)\?--[a-z][a-z-]*' | grep -o -- '[a-z-]*$'); do
            grep -q -- "from $command'.* -l ${option#--}\b" "$share/fish/vendor_completions.d/tarvokol-cli.fish" ||
                fail "fish knows no $option of $command"
        done
    done
}

# completed WORD...: what bash offers for the last word.
completed() {
    bash -c '. "$1"; shift; COMP_WORDS=(tarvokol-cli "$@"); COMP_CWORD=$#; _tarvokol_cli; echo "${COMPREPLY[@]}"' \
        bash "$share/bash-completion/completions/tarvokol-cli" "$@"
}

test_shells_complete() {
    same "kinds of curves" "sf-height sf-depth sf-hole" "$(completed curve sf-)"
    same "choices of an option" "strength" "$(completed plan --mode str)"
    same "commands" "convert" "$(completed con)"
    same "options" "--mode" "$(completed plan --mo)"
    same "files" "$source/examples/Thick_Seam_Pit.TKL" "$(completed results "$source/examples/Th")"
    clean "completion of zsh" zsh -n "$share/zsh/vendor-completions/_tarvokol-cli"
    clean "completion of fish" fish -n "$share/fish/vendor_completions.d/tarvokol-cli.fish"
    same "fish" "--mode" "$(fish -c "source $share/fish/vendor_completions.d/tarvokol-cli.fish
        complete -C 'tarvokol-cli plan --mo'" | cut -f 1)"
}

depends() { dpkg-deb -f "$(deb "$1")" Depends; }

# What a library's name, or nothing in the programs at all, tells: by release.
test_dependencies_are_told() {
    local by_name
    case $(. /etc/os-release && echo "$VERSION_CODENAME") in
        bookworm) by_name="libxlsxwriter4" ;;
        trixie) by_name="libxlsxwriter8 qt6-svg-plugins" ;;
        *) by_name="libxlsxwriter" ;;
    esac
    # shellcheck disable=SC2086
    holds Depends "$(depends tarvokol)," libqt6sql6-sqlite, fonts-liberation, hicolor-icon-theme, libqt6svg6 libqt6help6 \
        "libc6 (>= " "tarvokol-cli (= $version)" "tarvokol-cli-drawing (= $version)" "tarvokol-doc (= $version)" $by_name
    [[ $(depends tarvokol) != *wayland* ]] || fail "Wayland is no must"
    holds Recommends "$(dpkg-deb -f "$(deb tarvokol)" Recommends)" qt6-wayland xdg-utils pdf-viewer
    holds "Depends of the drawing" "$(depends tarvokol-cli-drawing)," fonts-liberation, libqt6gui6 ${by_name%% *} \
        "tarvokol-cli (= $version)"
    holds "Depends of the headers" "$(depends libtarvokol-dev)" "libtarvokol-engine1 (= $version)"
    holds "Depends of the module" "$(depends python3-tarvokol)," python3-numpy, "python3 (>= 3." "python3 (<< 3."
}

# The libraries of C and C++ are all that the command line and the engine need.
test_command_line_and_engine_need_no_toolkit() {
    for name in tarvokol-cli libtarvokol-engine1; do
        same "Depends of $name" "libc6 libgcc-s1 libstdc++6" \
            "$(depends $name | tr , '\n' | sed 's/^ *\([^ ]*\).*/\1/' | LC_ALL=C sort | xargs)"
        same "Recommends of $name" "" "$(dpkg-deb -f "$(deb $name)" Recommends)"
    done
}

# The one package of 1.3.02 held what is in these now.
test_the_single_package_is_replaced() {
    for name in tarvokol-cli tarvokol-cli-drawing tarvokol-doc; do
        same "Breaks of $name" "tarvokol (<< $version)" "$(dpkg-deb -f "$(deb $name)" Breaks)"
        same "Replaces of $name" "tarvokol (<< $version)" "$(dpkg-deb -f "$(deb $name)" Replaces)"
    done
}

test_programs_are_hardened() {
    local program
    for program in "$usr"/bin/* "$usr"/libexec/tarvokol/*; do
        holds "place in memory of $program" "$(readelf -h "$program")" "DYN (Position-Independent Executable file)"
        holds "segments of $program" "$(readelf -lW "$program")" GNU_RELRO
        holds "addresses of $program" "$(readelf -dW "$program")" BIND_NOW
        # The mark of a place that jumps may lead to; the start-up code of the system has a handful.
        [ "$(uname -m)" != x86_64 ] || [ "$(LC_ALL=C grep -aoP '\xf3\x0f\x1e\xfa' "$program" | wc -l)" -ge 100 ] ||
            fail "$program jumps anywhere"
        holds "guards of $program" "$(readelf --dyn-syms -W "$program")" __stack_chk_fail
        # Clang leaves out a bounds check whose answer it knows; in these programs it knows them all.
        [[ $(readelf -p .comment "$build/bin/${program##*/}") == *clang* ]] ||
            holds "bounds of $program" "$(readelf --dyn-syms -W "$program")" _chk@
        [[ $(readelf -lW "$program" | grep GNU_STACK) != *RWE* ]] || fail "$program runs code on its stack"
    done
}

test_command_line_starts_without_the_toolkit_and_finds_it() {
    local cli=$usr/bin/tarvokol-cli
    [[ $(readelf -d "$cli") != *Qt6* ]] || fail "the toolkit is loaded by every command"
    "$cli" plan -o "$scratch/plan.svg" "$source/examples/Thick_Seam_Pit.TKL" || fail "plan as SVG"
    [ -s "$scratch/plan.svg" ] || fail "no plan"
}

test_manual_has_title_bookmarks_and_links() {
    local manual=$doc/TARVOKOL.PDF outline topic
    holds "manual" "$(pdfinfo "$manual")" "TARVO-KOL Manual" "The TARVO-KOL authors"
    outline=$(pdftohtml -xml -i -stdout "$manual")
    holds "bookmarks of the manual" "$outline" '>Design</item>' '>The project file</item>' '>2. Describe</item>'
    # Every topic of the help's contents is a chapter; its root is the manual itself.
    while read -r topic; do
        holds "chapters of the manual" "$outline" ">$topic</item>"
    done < <(sed -n 's/.*<section title="\([^"]*\)".*/\1/p' "$source/resources/help/TARVOKOL.qhp" |
        grep -v '^TARVO-KOL Help$')
    [ "$(grep -c '<text [^>]*><a href="TARVOKOL.html#[0-9]*">' <<< "$outline")" -ge 60 ] || fail "links of the contents"
    holds "bookmarks of a note" "$(pdftohtml -xml -i -stdout "$doc/UnitsConversions.pdf")" '>2. Conversion factors</item>'
}

made_changelog() { env TZ="$1" "$source/packaging/make_changelog.sh" "${2:-$source/CHANGELOG.md}"; }

test_changelog_tells_the_release() {
    holds changelog "$(gzip -dc "$doc/changelog.gz")" "tarvokol (1.3.02) stable" "Tue, 20 Aug 2013"
    same "first line" "tarvokol ($version) UNRELEASED; urgency=medium" "$(gzip -dc "$doc/changelog.gz" | head -n 1)"
    # The same wherever and whenever it is made.
    same "changelog made elsewhere" "$(made_changelog UTC | grep '^ -- ')" "$(made_changelog Pacific/Kiritimati | grep '^ -- ')"
    same "zones of the changelog" "+0000" "$(made_changelog Pacific/Kiritimati | sed -n 's/^ -- .* //p' | sort -u)"
    # A source without changes since its release is that release.
    sed '/^## \[Unreleased\]/,/^## \[1.3.02\]/ { /^## /!d }' "$source/CHANGELOG.md" > "$scratch/released.md"
    same "first line of a release" "tarvokol (1.3.02) stable; urgency=medium" \
        "$(made_changelog UTC "$scratch/released.md" | head -n 1)"
}

for name in $(declare -F | sed -n 's/^declare -f \(test_.*\)/\1/p'); do
    echo "$name"
    $name
done
finish
