#!/usr/bin/env bash
# Looks at the sources without running them.
#   scripts/lint.sh format             clang-format, of every C++ file; shellcheck, of every script
#   scripts/lint.sh tidy [MINUTES]     clang-tidy, of the sources that were changed last first, until the time is up (default: 10)
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."

check_format() {
    local status=0
    git ls-files -z '*.cpp' '*.h' | xargs -0 clang-format --dry-run -Werror || status=1
    git ls-files -z 'scripts/*.sh' '.ci/run' | xargs -0 shellcheck || status=1
    return $status
}

# The sources of the programs and libraries (tests are compiled with all warnings; here they would only cost time),
# the ones of the latest commit first.
sources_by_change() {
    { git log --format= --name-only -- src apps; git ls-files src apps; } | grep '\.cpp$' | awk '!seen[$0]++' |
        while read -r file; do if grep -qF "$PWD/$file\"" build/clang/compile_commands.json; then echo "$file"; fi; done
}

check_tidy() {
    local minutes=$1 sources
    [[ -f build/clang/compile_commands.json ]] || cmake --preset clang >/dev/null
    mapfile -t sources < <(sources_by_change)
    mkdir -p build/tidy
    rm -f build/tidy/*
    tidy_one() {
        [[ $(date +%s) -lt $2 ]] || return 0
        local log="build/tidy/${1//\//-}"
        # Its counts of warnings in system headers are no findings.
        if clang-tidy -p build/clang --quiet "$1" >"$log" 2>"$log.errors"; then
            mv "$log" "$log.good"
        else
            cat "$log"
            grep 'error:' "$log.errors" || true
            return 1
        fi
    }
    export -f tidy_one
    local status=0
    # shellcheck disable=SC2016  # expanded by the inner shell
    printf '%s\n' "${sources[@]}" |
        xargs -P "$(nproc)" -I{} bash -c 'tidy_one "$@"' tidy_one {} $(($(date +%s) + minutes * 60)) || status=1
    local good bad
    good=$(find build/tidy -name '*.good' | wc -l)
    bad=$(find build/tidy -name '*.cpp' | wc -l)
    echo "clang-tidy: $((good + bad)) of ${#sources[@]} sources looked at, $bad with findings"
    return $status
}

scripts/install.sh lint clang
case "${1:-}" in
    format) check_format ;;
    tidy) check_tidy "${2:-10}" ;;
    *)
        echo "usage: scripts/lint.sh format | tidy [MINUTES]" >&2
        exit 2
        ;;
esac
