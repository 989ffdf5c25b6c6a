#!/usr/bin/env bash
# SPDX-License-Identifier: BSD-3-Clause
# Installs what is missing of the Debian packages that a purpose needs, and says what it installs.
# Asks the package database first: when nothing is missing it neither needs the network nor a password.
#
#   scripts/install-dependencies.sh [demo|test|ci|windows] [--list]
#
# demo  what building the library and the example hosts needs
# test  the same, and what building and running the tests needs
# ci    the same, and the linters, the documentation and the benchmarks
# windows  as test, and what building for Windows and running the tests under Wine needs
# --list prints the packages and installs nothing.
set -euo pipefail

purpose=${1:-test}
case $purpose in
demo | test | ci | windows) ;;
*)
    sed -n '3,12s/^# \{0,1\}//p' "$0" >&2
    exit 2
    ;;
esac

# The library and its hosts.
packages=(g++ cmake ninja-build ccache qtbase5-dev libqt5xmlpatterns5-dev zlib1g-dev libminizip-dev)
# What the hosts need beside the library: matrices, and letters for their pictures.
packages+=(libeigen3-dev fonts-dejavu-core)
locales=()
if [ "$purpose" != demo ]; then
    # The tests; the second compiler that the public headers are tried with.
    packages+=(libgtest-dev libgmock-dev clang pkg-config)
    # Programs that read back what the library has written: XML, zip, workbooks and pictures of them.
    packages+=(libxml2-utils unzip python3 python3-openpyxl libreoffice-calc fonts-liberation2 poppler-utils)
    # A screen for the tests of the host with a window.
    packages+=(xvfb xauth)
    # Other languages and other clocks.
    packages+=(locales tzdata)
    locales+=(tr_TR de_DE)
fi
if [ "$purpose" = windows ]; then
    packages+=(g++-mingw-w64-x86-64-posix gcc-mingw-w64-x86-64-posix libz-mingw-w64-dev wine wine64)
fi
if [ "$purpose" = ci ]; then
    packages+=(clang-format clang-tidy libclang-rt-14-dev doxygen graphviz libbenchmark-dev git util-linux)
    # The browser that opens the HTML pages.
    packages+=(chromium)
fi

if [ "${2:-}" = --list ]; then
    printf '%s\n' "${packages[@]}"
    exit 0
fi

if ! command -v dpkg-query >/dev/null; then
    echo "No Debian package database here; please see to the equivalents of: ${packages[*]}" >&2
    exit 0
fi

as_root() {
    if [ "$(id -u)" = 0 ]; then
        "$@"
    elif command -v sudo >/dev/null; then
        sudo "$@"
    else
        echo "Not root and no sudo. Run this as root, then start again:" >&2
        echo "    $*" >&2
        exit 1
    fi
}

missing=()
for package in "${packages[@]}"; do
    state=$(dpkg-query --show --showformat='${db:Status-Status}' "$package" 2>/dev/null || true)
    # A package of several architectures answers once for each.
    case $state in
    *installed*) [ "$state" = not-installed ] && missing+=("$package") ;;
    *) missing+=("$package") ;;
    esac
done

if [ ${#missing[@]} -gt 0 ]; then
    echo "Installing Debian packages: ${missing[*]}"
    # A foreign package source that does not answer must not stop us: what matters is the next step.
    as_root apt-get -o DPkg::Lock::Timeout=300 -qq update || echo "apt-get update had errors; going on" >&2
    as_root env DEBIAN_FRONTEND=noninteractive apt-get -o DPkg::Lock::Timeout=300 -qq -o Dpkg::Use-Pty=0 install --yes \
        --no-install-recommends "${missing[@]}"
fi

for locale in ${locales[@]+"${locales[@]}"}; do
    if ! locale -a | grep -qix "$locale\.utf-\?8"; then
        echo "Making the locale $locale.UTF-8"
        as_root localedef -i "$locale" -f UTF-8 "$locale.UTF-8"
    fi
done
