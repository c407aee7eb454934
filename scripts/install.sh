#!/usr/bin/env bash
# Installs the Debian packages of the named groups, those that are missing only. Asks nothing.
#   scripts/install.sh program|tests|demo|bench|clang|fuzz|lint|windows ...
set -euo pipefail

packages_of() {
    local program="cmake ninja-build g++ libsqlite3-dev libical-dev libgmime-3.0-dev pkg-config libcli11-dev nlohmann-json3-dev"
    case "$1" in
        program) echo "$program" ;;
        tests) echo "$program libgtest-dev" ;;
        demo) echo "$program jq" ;;
        bench) echo "$program strace unrtf libsimpleini-dev libglib2.0-dev libctemplate-dev" ;;
        clang) echo "$program libgtest-dev clang" ;;
        fuzz) echo "$program libgtest-dev clang libclang-rt-14-dev llvm" ;;  # llvm: readable stacks
        lint) echo "git clang-format clang-tidy shellcheck" ;;
        windows) echo "cmake ninja-build g++-mingw-w64-x86-64" ;;
        *) echo "install.sh: no group of packages is called '$1'" >&2; return 2 ;;
    esac
}

wanted=()
for group in "$@"; do
    names=$(packages_of "$group")
    read -ra more <<<"$names"
    wanted+=("${more[@]}")
done

if ! command -v apt-get >/dev/null; then
    echo "install.sh: no apt-get on this system, so nothing is installed. Needed are: ${wanted[*]}" >&2
    exit 0  # the tools may well be there; the build tells what is not
fi

missing=()
for package in "${wanted[@]}"; do
    status=$(dpkg-query -W -f='${db:Status-Status}' "$package" 2>/dev/null || true)
    [[ $status == installed || " ${missing[*]:-} " == *" $package "* ]] || missing+=("$package")
done
[[ ${#missing[@]} -gt 0 ]] || exit 0

as_root=()
if [[ $(id -u) -ne 0 ]]; then
    if ! command -v sudo >/dev/null; then
        echo "install.sh: please install as root: apt-get install ${missing[*]}" >&2
        exit 1
    fi
    as_root=(sudo)
    [[ -t 0 ]] || as_root+=(-n)  # without a terminal nobody can type a password
fi

echo "Installing ${missing[*]} ..."
log=$(mktemp)
trap 'rm -f "$log"' EXIT
apt() { "${as_root[@]}" env DEBIAN_FRONTEND=noninteractive apt-get -o DPkg::Lock::Timeout=300 "$@" >>"$log" 2>&1 </dev/null; }
# The package lists of this machine may do; a bare system has none, and stale ones name packages that are gone.
if ! { apt update && apt install -y --no-install-recommends "${missing[@]}"; }; then
    tail -n 20 "$log" >&2
    echo "install.sh: apt-get could not install: ${missing[*]}" >&2
    exit 1
fi
