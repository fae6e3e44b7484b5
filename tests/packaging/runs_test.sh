#!/usr/bin/env bash
# SPDX-License-Identifier: GPL-3.0-or-later
# What ./run and ./test do with and without a display, and when a step fails. The tools that build, and what they would have
# built, are stood in for by scripts that note how they were called.
set -uo pipefail
cd "$(dirname "$0")/../.."
. tests/packaging/checks.sh
scratch=$(mktemp -d)
trap 'rm -rf "$scratch"' EXIT
tree=$scratch/tree machine=$scratch/machine calls=$scratch/calls
mkdir -p "$tree/packaging" "$tree/tests/packaging" "$tree/examples" "$machine" "$scratch/north ridge"
cp run test "$tree/"
cp packaging/*.sh "$tree/packaging/"
cp tests/*.sh "$tree/tests/"
cp tests/packaging/minimal_system.sh "$tree/tests/packaging/"
touch "$tree/examples/A.TKL" "$scratch/north ridge/p.q.TKL"
for tool in bash dirname realpath ls head cat basename mkdir mktemp rm tr cp grep chmod sleep; do ln -s "$(type -P $tool)" "$machine/$tool"; done

# stand_in NAME LINE...: a tool of the machine.
stand_in() {
    local name=$1
    shift
    printf '%s\n' '#!/bin/bash' "echo \"$name \$*\" >> $calls" "$@" > "$machine/$name"
    chmod +x "$machine/$name"
}
# Every package is installed. A build leaves the two programs.
stand_in dpkg-query 'echo install ok installed'
stand_in ctest "echo \"profiles \$LLVM_PROFILE_FILE\" >> $calls" "exit \$(cat $scratch/ctest_status)"
printf '%s\n' '#!/bin/bash' "echo \"\${0##*/} \$*\" >> $calls" 'echo "says ${0##*/} $1"' \
    'for word in "$@"; do case $word in */out/*) echo x > "$word" ;; esac; done' \
    "[ \"\$1 \$2\" != \"\$(cat $scratch/fails)\" ]" > "$scratch/program"
chmod +x "$scratch/program"

# said COMMAND...: what the command says in a tree that nobody has built in yet; its calls are in a file beside.
said() {
    rm -rf "$tree/build" "$tree/out"
    : > "$calls"
    (cd "$tree" && env -i PATH="$machine" HOME="$scratch" ${display:+DISPLAY=$display} bash "$@" 2>&1)
}
called() { grep -v '^dpkg-query\|^id ' "$calls"; }
begin() {
    stand_in cmake "case \$* in *--build*) echo '[1/1] all'; status=\$(cat $scratch/build_status)" \
        '    [ "$status" -eq 0 ] || { echo "a.cpp: error"; exit "$status"; } ;; esac' \
        'mkdir -p build/run/bin' \
        "for name in tarvokol tarvokol-cli; do cp $scratch/program build/run/bin/\$name; done"
    echo 0 > "$scratch/build_status"
    echo 0 > "$scratch/ctest_status"
    echo none > "$scratch/fails"
    display=""
}

test_without_a_display_the_command_line_does_the_job() {
    local text
    text=$(said ./run "$scratch/north ridge/p.q.TKL")
    same "status" 0 $?
    holds "what is said" "$text" "No display: the command line does the work instead." "says tarvokol-cli results" \
        "Written to out/: p.q-barrier.svg p.q-plan.svg p.q-sf-depth.svg p.q-sf-height.svg p.q-sf-hole.svg p.q-web.svg p.q.pdf"
    same "calls" "tarvokol-cli results -- p.q.TKL
tarvokol-cli results --force -o $tree/out/p.q.pdf -- p.q.TKL
tarvokol-cli plan --force -o $tree/out/p.q-plan.svg -- p.q.TKL" "$(called | grep '^tarvokol-cli [rp]')"
}

test_a_curve_that_the_panel_has_not_leaves_the_others() {
    echo "curve sf-hole" > "$scratch/fails"
    said ./run examples/A.TKL > /dev/null
    same "status" 0 $?
    same "curves" "sf-height sf-depth sf-hole web barrier" "$(called | sed -n 's/^tarvokol-cli curve \([^ ]*\) .*/\1/p' | xargs)"
}

test_a_project_that_is_refused_ends_the_run() {
    echo "results --" > "$scratch/fails"
    said ./run examples/A.TKL > /dev/null
    same "status" 1 $?
    same "nothing after it" "tarvokol-cli results -- A.TKL" "$(called | grep '^tarvokol-cli')"
}

test_with_a_display_the_program_is_started() {
    local text
    display=:7
    text=$(said ./run "$scratch/north ridge/p.q.TKL")
    same "status" 0 $?
    [[ $text != *"No display"* ]] || fail "a display is not seen"
    same "calls" "tarvokol $scratch/north ridge/p.q.TKL" "$(called | grep '^tarvokol')"
    said ./run > /dev/null
    same "calls without a project" "tarvokol " "$(called | grep '^tarvokol')"
}

test_a_build_that_fails_is_shown_and_ends_the_run() {
    local text
    echo 3 > "$scratch/build_status"
    text=$(said ./run examples/A.TKL)
    same "status of ./run" 3 $?
    holds "what is said" "$text" "a.cpp: error"
    same "nothing is started" "" "$(called | grep '^tarvokol')"
    text=$(said ./test)
    same "status of ./test" 3 $?
    holds "what is said" "$text" "== Release build" "a.cpp: error"
    same "nothing is tested" "" "$(called | grep '^ctest')"
}

test_tests_that_fail_make_the_run_red() {
    local text
    text=$(said ./test)
    same "status of tests that pass" 0 $?
    same "one run of tests" 1 "$(called | grep -c '^ctest --test-dir build/release ')"
    echo 8 > "$scratch/ctest_status"
    text=$(said ./test)
    same "status of tests that fail" 8 $?
    holds "the step" "$text" "== Tests of the release"
    text=$(said ./test --packaged)
    same "status of tests of the packages' build that fail" 8 $?
    same "the build that is packed" "cmake --preset package -DTARVOKOL_TESTS=ON
cmake --build --preset package --target all" "$(called | grep '^cmake')"
    same "what is tested" 1 "$(called | grep -c '^ctest --test-dir build/package ')"
    text=$(said ./test --coverage)
    same "status of counted tests that fail" 8 $?
    [[ $text != *"== Coverage"$'\n'* ]] || fail "lines are counted of tests that failed"
    same "where the counts go" "profiles $tree/build/coverage/profiles/%4m.profraw" "$(called | grep '^profiles')"
}

test_they_are_started_from_any_folder() {
    rm -rf "$tree/out"
    (cd "$scratch" && env -i PATH="$machine" HOME="$scratch" bash tree/run "north ridge/p.q.TKL" > /dev/null 2>&1)
    same "status" 0 $?
    [ -s "$tree/out/p.q.pdf" ] || fail "no report in the tree's own out/"
}

# The bare system beside it would run for an hour; it ends with the run.
test_a_step_that_fails_ends_what_runs_beside_it() {
    local text
    printf '%s\n' '#!/bin/bash' "echo \$\$ > $scratch/bare" 'exec sleep 3600' > "$tree/tests/packaging/bare_system.sh"
    chmod +x "$tree/tests/packaging/bare_system.sh"
    stand_in cmake "case \$* in *--build*) until [ -s $scratch/bare ]; do :; done; exit 3 ;; esac"
    text=$(said ./test --all)
    same "status" 3 $?
    holds "what is said" "$text" "== Sanitizer build" "== broken off:"
    same "the bare system" "" "$(tr -d '\0' 2> /dev/null < "/proc/$(cat "$scratch/bare")/cmdline")"
}

for name in $(declare -F | sed -n 's/^declare -f \(test_.*\)/\1/p'); do
    begin
    $name
done
finish
