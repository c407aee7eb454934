#!/usr/bin/env bash
# Installs what is missing, builds everything and runs every test.
#   scripts/test.sh [release|dev|asan|clang] [ctest arguments]
# The default is release, which also leaves the program at build/release/bin/tallowsync.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."

preset=release
case "${1:-}" in
    release | dev | asan | clang)
        preset=$1
        shift
        ;;
esac

group=tests
[[ $preset != clang ]] || group=clang
scripts/install.sh "$group"
if command -v ccache >/dev/null; then export CMAKE_CXX_COMPILER_LAUNCHER=${CMAKE_CXX_COMPILER_LAUNCHER-ccache}; fi
cmake --preset "$preset" -DWMOUTLOOK_TESTS=ON
cmake --build --preset "$preset"
ctest --preset "$preset" --parallel "$(nproc)" --no-tests=error "$@"
