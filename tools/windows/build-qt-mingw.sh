#!/usr/bin/env bash
# SPDX-License-Identifier: BSD-3-Clause
# Makes the prefix that builds for Windows x86-64 take their libraries from (ZYCORE_MINGW_PREFIX): Qt 5 (Core, Gui,
# Network, Xml, the plugins of platforms), minizip and zlib, with headers, import libraries, DLLs, the tools that run
# here, and the licences. From Debian's own source packages with Debian's mingw-w64, in half an hour on two cores. The
# prefix may be moved.
#
#   tools/windows/build-qt-mingw.sh [--prefix DIR] [--work DIR] [--jobs N] [--pack FILE.tar.xz]
#                                   [--sources DIR] [--install-packages] [--keep]
#
#   --sources DIR        look here first for the files of the source packages (*.dsc and what they name)
#   --install-packages   install what is missing, which needs root
#   --keep               keep the build trees in the work folder
#
# A step that is done leaves a stamp in the work folder and is not done again.
set -euo pipefail

here=$(cd "$(dirname "$0")" && pwd)
project=$(cd "$here/../.." && pwd)
prefix=$PWD/qt-mingw
work=$PWD/qt-mingw-work
jobs=2
pack=
sources=
install=no
keep=no
while [ $# -gt 0 ]; do
    case $1 in
    --prefix) prefix=$2 && shift 2 ;;
    --work) work=$2 && shift 2 ;;
    --jobs) jobs=$2 && shift 2 ;;
    --pack) pack=$2 && shift 2 ;;
    --sources) sources=$2 && shift 2 ;;
    --install-packages) install=yes && shift ;;
    --keep) keep=yes && shift ;;
    *)
        sed -n '3,17s/^# \{0,1\}//p' "$0" >&2
        exit 2
        ;;
    esac
done
triple=x86_64-w64-mingw32
packages=(g++-mingw-w64-x86-64-posix gcc-mingw-w64-x86-64-posix libz-mingw-w64-dev g++ make perl dpkg-dev xz-utils
    pkg-config cmake file wine wine64)

die() {
    echo "build-qt-mingw: $*" >&2
    exit 1
}

# step <name> <function> <argument>...: once. The output goes to a log, whose end is shown after a failure.
step() {
    local name=$1 began=$SECONDS status
    shift
    [ -e "$work/stamps/$name" ] && return 0
    printf '== %s (%s)\n' "$name" "$(date +%H:%M:%S)"
    # Not in a condition: there the shell would go on after failures inside.
    set +e
    (
        set -euo pipefail
        "$@"
    ) >"$work/logs/$name.log" 2>&1
    status=$?
    set -e
    if [ $status != 0 ]; then
        tail -n 30 "$work/logs/$name.log" >&2
        die "step $name failed; see $work/logs/$name.log"
    fi
    echo $((SECONDS - began)) >"$work/stamps/$name"
}

require_packages() {
    local missing=() package
    for package in "${packages[@]}"; do
        dpkg-query --show --showformat='${Status}' "$package" 2>/dev/null | grep -q 'ok installed' || missing+=("$package")
    done
    [ ${#missing[@]} = 0 ] && return 0
    [ $install = yes ] || die "missing packages: ${missing[*]} (try --install-packages)"
    DEBIAN_FRONTEND=noninteractive apt-get -o DPkg::Lock::Timeout=300 install --yes --no-install-recommends "${missing[@]}"
}

# --- Sources ---

# A list of our own with the Debian archives of this machine; the machine's configuration stays as it is.
apt_with_sources() {
    apt-get -o DPkg::Lock::Timeout=300 -o Dir::Etc::SourceParts=/dev/null \
        -o Dir::Etc::SourceList="$work/archives.sources" -o Dir::State::Lists="$work/lists" "$@"
}

make_list() {
    : >"$work/archives.sources"
    local file
    for file in /etc/apt/sources.list.d/*.sources; do
        grep -q debian-archive-keyring "$file" || continue
        sed 's/^Types:.*/Types: deb-src/' "$file" >>"$work/archives.sources"
        echo >>"$work/archives.sources"
    done
    [ -s "$work/archives.sources" ] || die "no Debian archive in /etc/apt/sources.list.d"
    apt_with_sources update
}

# Whether every file that a .dsc names is here, with its hash.
is_whole() {
    sed -n '/^Checksums-Sha256:/,/^[^ ]/s/^ \([0-9a-f]\{64\}\) [0-9]* \(.*\)$/\1  \2/p' "$1" | sha256sum -c --quiet -
}

newest_dsc() {
    find . -maxdepth 1 -name "$1_*.dsc" | sort --version-sort | tail -n 1
}

# get_source <package> <tree>: unpacked, with Debian's patches.
get_source() {
    local package=$1 tree=$2 dsc
    cd "$work/downloads"
    if [ -n "$sources" ] && ls "$sources/$package"_*.dsc >/dev/null 2>&1; then
        cp -u "$sources/$package"_* .
    fi
    dsc=$(newest_dsc "$package")
    if [ -z "$dsc" ] || ! is_whole "$dsc"; then
        [ -s "$work/archives.sources" ] || make_list
        apt_with_sources --download-only --only-source source "$package"
        dsc=$(newest_dsc "$package")
    fi
    is_whole "$dsc"
    rm -rf "$work/src/$tree"
    dpkg-source --no-check -x "$dsc" "$work/src/$tree"
    sed -n 's/^Version: //p' "$dsc" | head -n 1 >"$work/stamps/version-$package"
}

# --- Qt ---

# Debian's sources lack iaccessible2 (accessibility), wintab (tabletevent) and sqlite (sql): these are switched off. All
# other foreign code comes with Qt.
configure_qt() {
    rm -rf "$work/b-qt"
    mkdir -p "$work/b-qt"
    cd "$work/b-qt"
    ../src/qtbase/configure -opensource -confirm-license -prefix "$prefix" \
        -xplatform win32-g++ -device-option CROSS_COMPILE=$triple- \
        -release -shared -nomake examples -nomake tests -make libs -no-compile-examples \
        -no-opengl -no-feature-vulkan -no-widgets -no-dbus -no-ssl -no-icu \
        -no-feature-sql -no-feature-concurrent -no-feature-testlib \
        -no-feature-tabletevent -no-accessibility -no-feature-direct2d \
        -qt-zlib -qt-pcre -qt-libpng -no-libjpeg -qt-freetype -qt-harfbuzz -qt-doubleconversion
}

build_qt() {
    nice -n 10 make -C "$work/b-qt" -j"$jobs"
}

install_qt() {
    make -C "$work/b-qt" install
}

# --- minizip, zlib, the libraries of the compiler ---

build_minizip() {
    local build=$work/b-minizip source=$work/src/minizip part
    rm -rf "$build"
    mkdir -p "$build" "$prefix"/{bin,lib,include/minizip}
    cd "$build"
    for part in ioapi iowin32 mztools unzip zip; do
        $triple-gcc-posix -O2 -c "$source/$part.c" -I"$source" -o $part.o
    done
    $triple-ar rcs "$prefix/lib/libminizip.a" ./*.o
    $triple-gcc-posix -shared -s -static-libgcc -o "$prefix/bin/libminizip-1.dll" ./*.o \
        -Wl,--out-implib,"$prefix/lib/libminizip.dll.a" -lz
    cp "$source"/{crypt,ioapi,iowin32,mztools,unzip,zip}.h "$prefix/include/minizip/"
}

add_runtime() {
    local name file
    for name in libstdc++-6.dll libgcc_s_seh-1.dll libwinpthread-1.dll; do
        file=$($triple-g++-posix -print-file-name=$name)
        [ -e "$file" ] || file=/usr/$triple/lib/$name
        cp "$file" "$prefix/bin/"
    done
    cp /usr/$triple/lib/zlib1.dll "$prefix/bin/"
    cp /usr/$triple/lib/libz.dll.a /usr/$triple/lib/libz.a "$prefix/lib/"
    cp /usr/$triple/include/zlib.h /usr/$triple/include/zconf.h "$prefix/include/"
}

strip_all() {
    find "$prefix" -name '*.dll' -exec $triple-strip --strip-unneeded {} +
    find "$prefix/bin" -type f ! -name '*.*' -exec sh -c 'file -b "$1" | grep -q ELF && strip "$1"' _ {} \;
}

# --- What remains in the prefix ---

# Not needed to use the libraries: documentation, Qt's own build helpers and static internals. A plugin and the CMake file
# that names it go together: the package looks whether the plugin is there.
trim_prefix() {
    local unused internal
    rm -rf "$prefix/doc" "$prefix/lib/metatypes" "$prefix"/plugins/generic "$prefix"/plugins/*/lib*.a
    rm -f "$prefix/lib/cmake/Qt5Gui/Qt5Gui_QTuioTouchPlugin.cmake"
    rm -f "$prefix"/bin/{fixqt4headers.pl,qlalr,qvkgen,tracegen}
    internal=(DeviceDiscoverySupport EdidSupport EventDispatcherSupport FbSupport FontDatabaseSupport ThemeSupport)
    rm -f "$prefix"/lib/libQt5Bootstrap.*
    for unused in "${internal[@]}"; do
        rm -rf "$prefix"/lib/libQt5"$unused".* "$prefix/lib/Qt5$unused.prl" "$prefix/lib/cmake/Qt5$unused" \
            "$prefix/include/Qt$unused"
    done
    rm -rf "$prefix"/include/{qtfreetype,qtlibpng} "$prefix"/lib/*qtfreetype* "$prefix"/lib/*qtlibpng*
    find "$prefix/mkspecs" -mindepth 1 -maxdepth 1 -type d ! -name win32-g++ ! -name linux-g++ ! -name common \
        ! -name features ! -name modules -exec rm -rf {} +
}

add_licences() {
    local licences=$prefix/share/licenses package
    mkdir -p "$licences"/{qtbase,minizip,zlib,gcc-runtime,mingw-w64-runtime}
    cp "$work"/src/qtbase/LICENSE.* "$work/src/qtbase/debian/copyright" "$licences/qtbase/"
    cp "$work/src/minizip/debian/copyright" "$licences/minizip/"
    cp /usr/share/doc/libz-mingw-w64-dev/copyright "$licences/zlib/"
    cp /usr/share/doc/gcc-mingw-w64-base/copyright "$licences/gcc-runtime/"
    cp /usr/share/doc/mingw-w64-x86-64-dev/copyright "$licences/mingw-w64-runtime/"
    {
        echo "Built from Debian packages:"
        for package in qtbase-opensource-src minizip; do
            echo "  source $package $(cat "$work/stamps/version-$package")"
        done
        for package in g++-mingw-w64-x86-64-posix mingw-w64-x86-64-dev binutils-mingw-w64-x86-64 libz-mingw-w64-dev; do
            echo "  binary $package $(dpkg-query --show --showformat='${Version}' $package)"
        done
    } >"$prefix/MANIFEST"
}

# A program that uses each library, configured, linked, and run under Wine.
check_prefix() {
    rm -rf "$work/check"
    cp -r "$here/check-prefix" "$work/check"
    cmake -S "$work/check" -B "$work/check/build" -DCMAKE_TOOLCHAIN_FILE="$project/cmake/mingw-w64-x86_64.cmake" \
        -DZYCORE_MINGW_PREFIX="$prefix" -DCMAKE_BUILD_TYPE=Release
    cmake --build "$work/check/build"
    WINEPREFIX="$work/wine" ctest --test-dir "$work/check/build" --output-on-failure --no-tests=error
}

pack_prefix() {
    tar --directory="$(dirname "$prefix")" --sort=name --owner=0 --group=0 --numeric-owner \
        --mtime="@${SOURCE_DATE_EPOCH:-0}" --create "$(basename "$prefix")" | xz -T"$jobs" -9e >"$pack.tmp"
    mv "$pack.tmp" "$pack"
}

require_packages
mkdir -p "$work"/{src,stamps,logs,lists/partial,downloads} "$prefix"
work=$(cd "$work" && pwd)
prefix=$(cd "$prefix" && pwd)
[ "${prefix#* }" = "$prefix" ] && [ "${work#* }" = "$work" ] || die "no blanks in the paths, please"

step source-qt get_source qtbase-opensource-src qtbase
step source-minizip get_source minizip minizip
step configure-qt configure_qt
step build-qt build_qt
step install-qt install_qt
step minizip build_minizip
step runtime add_runtime
step strip strip_all
step trim trim_prefix
step licences add_licences
rm -f "$work/stamps/check"
step check check_prefix
if [ -n "$pack" ]; then
    [ "${pack#/}" != "$pack" ] || pack=$PWD/$pack
    rm -f "$work/stamps/pack"
    step pack pack_prefix
fi
[ $keep = yes ] || rm -rf "$work"/b-* "$work/check"
echo "Done: ZYCORE_MINGW_PREFIX=$prefix"
