#!/usr/bin/env bash
# Runs the fuzz targets, each for some seconds and as many at once as there are processors.
#   scripts/fuzz.sh [SECONDS_EACH] [TARGET...]      (default: 60 seconds, all targets)
# The seeds in tests/fuzz/corpus/<target>/ are only read; what a run finds is kept in build/fuzz/corpus/<target>/, an input
# that makes a target fail in build/fuzz/failures/.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."

seconds=${1:-60}
shift || true

scripts/install.sh fuzz
if command -v ccache >/dev/null; then export CMAKE_CXX_COMPILER_LAUNCHER=${CMAKE_CXX_COMPILER_LAUNCHER-ccache}; fi
cmake --preset fuzz
targets=("$@")
if [[ ${#targets[@]} -eq 0 ]]; then
    mapfile -t targets < <(cmake --build --preset fuzz --target help | sed -nE 's/^([A-Za-z0-9]+_fuzz): phony$/\1/p' | sort -u)
fi
if [[ ${#targets[@]} -eq 0 ]]; then
    echo "fuzz.sh: there is no fuzz target" >&2
    exit 1
fi
if [[ $# -eq 0 ]]; then
    for folder in tests/fuzz/corpus/*/; do
        name=$(basename "$folder")
        if [[ " ${targets[*]} " != *" $name "* ]]; then
            echo "fuzz.sh: the seeds in $folder belong to no target" >&2
            exit 1
        fi
    done
fi
cmake --build --preset fuzz --target "${targets[@]}"

fuzz_one() {
    local target=$1 seconds=$2 log=build/fuzz/$1.log
    mkdir -p "build/fuzz/corpus/$target" build/fuzz/failures
    local corpora=("build/fuzz/corpus/$target")
    [[ ! -d tests/fuzz/corpus/$target ]] || corpora+=("tests/fuzz/corpus/$target")
    if "build/fuzz/bin/$target" -max_total_time="$seconds" -timeout=10 -rss_limit_mb=2048 -print_final_stats=1 \
        -artifact_prefix="build/fuzz/failures/$target-" "${corpora[@]}" >"$log" 2>&1; then
        echo "$target: $(sed -nE 's/^stat::number_of_executed_units: *//p' "$log") inputs, no failure"
    else
        tail -n 60 "$log"
        echo "$target: FAILED"
        return 1
    fi
}
export -f fuzz_one
# shellcheck disable=SC2016  # expanded by the inner shell
printf '%s\n' "${targets[@]}" | xargs -P "$(nproc)" -I{} bash -c 'fuzz_one "$@"' fuzz_one {} "$seconds"
