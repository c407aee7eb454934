#!/usr/bin/env bash
# Measures what the contact pass costs beside a hand-written loop, how the calendar pass grows, how fast rich text and settings
# files are read and templates merged, and prints a table of each (docs/performance.md says how to read them).
#   scripts/bench.sh                      1,000, 10,000 and 100,000 records, five rounds, and the rest: some minutes
#   scripts/bench.sh --calendar           only the calendar pass: a minute
#   scripts/bench.sh --richtext           only rich text: half a minute
#   scripts/bench.sh --settings           only the settings file: half a minute
#   scripts/bench.sh --merge              only the merge of templates: half a minute
#   scripts/bench.sh --guard              only whether a record costs the same among 8,000 as among 1,000: seconds
#   scripts/bench.sh --verify             only whether both sides leave the same items and links
#   scripts/bench.sh --sizes 1000,20000 --rounds 3 [--folder FOLDER]
# Fails when a bound is not kept.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."

programs=(wmoutlook_bench richtext_bench settings_bench merge_bench)
case " $* " in
    " --richtext ") programs=(richtext_bench) ;;
    " --settings ") programs=(settings_bench) ;;
    " --merge ") programs=(merge_bench) ;;
    *" --richtext "* | *" --settings "* | *" --merge "*)
        echo "bench.sh: --richtext, --settings and --merge stand alone" >&2
        exit 2
        ;;
    *" --guard "* | *" --verify "* | *" --calendar "*) programs=(wmoutlook_bench) ;;
esac

scripts/install.sh bench
if command -v ccache >/dev/null; then export CMAKE_CXX_COMPILER_LAUNCHER=${CMAKE_CXX_COMPILER_LAUNCHER-ccache}; fi
mkdir -p build
if ! { cmake --preset release -B build/bench -DWMOUTLOOK_BENCH=ON -DWMOUTLOOK_TESTS=OFF &&
    cmake --build build/bench --target "${programs[@]}"; } >build/bench-build.log 2>&1; then
    tail -n 40 build/bench-build.log >&2
    echo "bench.sh: the benchmark could not be built" >&2
    exit 1
fi

# Files in memory, on one core: what is left is the work itself.
folder=/dev/shm
[[ -d $folder && -w $folder ]] || folder=${TMPDIR:-/tmp}
pin=()
if command -v taskset >/dev/null; then
    first_core=$(taskset -cp $$ | sed -E 's/.*: *([0-9]+).*/\1/')
    pin=(taskset -c "$first_core")
fi
failed=0
for program in "${programs[@]}"; do
    [[ $program == "${programs[0]}" ]] || echo
    arguments=()
    [[ $program != wmoutlook_bench ]] || arguments=(--folder "$folder" "$@")
    "${pin[@]}" "build/bench/bin/$program" "${arguments[@]}" || failed=$?
    if [[ $program == wmoutlook_bench && ${#programs[@]} -gt 1 ]]; then
        echo
        "${pin[@]}" "build/bench/bin/$program" --calendar "${arguments[@]}" || failed=$?
    fi
done
exit "$failed"
