#!/usr/bin/env bash
# Builds one preset of CMakePresets.json (default: release) in build/<preset>, after installing what it needs.
# "release" builds the program alone: build/release/bin/tallowsync. The others build everything that they have.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."

preset=${1:-release}
arguments=()
targets=()
case "$preset" in
    release)
        group=program
        targets=(--target tallowsync)
        # A tree that test.sh has set up keeps its tests; a new one does without, and so without GoogleTest.
        [[ -f build/release/CMakeCache.txt ]] || arguments=(-DWMOUTLOOK_TESTS=OFF)
        ;;
    dev | asan) group=tests ;;
    clang | fuzz | windows) group=$preset ;;
    *)
        echo "build.sh: no preset is called '$preset' (release, dev, asan, clang, fuzz, windows)" >&2
        exit 2
        ;;
esac

scripts/install.sh "$group"
if command -v ccache >/dev/null; then export CMAKE_CXX_COMPILER_LAUNCHER=${CMAKE_CXX_COMPILER_LAUNCHER-ccache}; fi
cmake --preset "$preset" "${arguments[@]}"
cmake --build --preset "$preset" "${targets[@]}"
