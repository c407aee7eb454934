#!/usr/bin/env bash
# Counts how often the contact pass makes the disk write through, and fails above 0.05 times per record.
#   scripts/count-syncs.sh [COMPANIES] [FOLDER]      (default: 5000, in a new folder below build/)
# Every company is carried twice, once creating and once updating. Opening and closing the files is counted in.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."

companies=${1:-5000}
rounds=2
if ! command -v strace >/dev/null; then
    echo "count-syncs.sh: strace is missing; install it first (apt-get install strace)" >&2
    exit 1
fi
scripts/bench.sh --verify --sizes 100 >/dev/null

mkdir -p build
folder=$(mktemp -d "${2:-build}/syncs-XXXXXX")
trap 'rm -rf "$folder"' EXIT
if [[ $(stat -f -c %T "$folder") == tmpfs ]]; then
    echo "count-syncs.sh: $folder lies in memory; name a folder on a disk" >&2
    exit 2
fi

bench=(build/bench/bin/wmoutlook_bench --folder "$folder" --sizes "$companies" --rounds "$rounds")
"${bench[@]}" --make
strace -f -c -e trace=fdatasync,fsync -o "$folder/calls" "${bench[@]}" --carry
awk -v records=$((companies * rounds)) '
    $NF == "fdatasync" || $NF == "fsync" { syncs += $4 }
    END {
        printf "%d syncs for %d records: %.4f per record (at most 0.05 are allowed)\n", syncs, records, syncs / records
        exit syncs > 0 && syncs / records <= 0.05 ? 0 : 1  # none at all would mean that nothing was counted
    }' "$folder/calls"
