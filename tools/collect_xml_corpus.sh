#!/usr/bin/env bash
# SPDX-License-Identifier: BSD-3-Clause
# Collects the real documents of tests/data/XML/corpus from installed Debian packages, with a table of their origin and
# licence on the standard output. Run by hand; the documents are kept, so that the test sees the same ones everywhere.
#
#   tools/collect_xml_corpus.sh > table
set -euo pipefail
cd "$(dirname "$0")/.."
target=tests/data/XML/corpus
mkdir -p "$target"

# take <package> <licence> <file>...
take() {
    local package=$1 licence=$2 file version
    shift 2
    version=$(dpkg-query --show --showformat='${Version}' "$package")
    for file in "$@"; do
        cp --no-preserve=mode,ownership "$file" "$target/$(basename "$file")"
        printf '| `%s` | %s %s | %s |\n' "$(basename "$file")" "$package" "$version" "$licence"
    done
}

mime=/usr/share/mime
take shared-mime-info GPL-2.0-or-later $mime/application/{pdf,zip,xml,json,vnd.sun.xml.writer.template}.xml \
    $mime/text/{html,csv,x-c++src}.xml $mime/image/{png,svg+xml}.xml $mime/video/mpeg.xml
fonts=/usr/share/fontconfig/conf.avail
take fontconfig-config HPND $fonts/{30-metric-aliases,45-latin,65-nonlatin,10-hinting-slight,60-latin}.conf
schemas=/usr/share/glib-2.0/schemas
take gsettings-desktop-schemas LGPL-2.1-or-later $schemas/org.gnome.desktop.{interface.gschema,a11y.gschema,enums}.xml
take iso-codes LGPL-2.1-or-later /usr/share/xml/iso-codes/{iso_15924,iso_639-5,iso_4217}.xml
take gdb GPL-3.0-or-later /usr/share/gdb/syscalls/{amd64-linux,arm-linux}.xml
take xkb-data MIT /usr/share/X11/xkb/rules/base.extras.xml
take libreoffice-calc CC0-1.0 /usr/share/metainfo/libreoffice-calc.appdata.xml
examples=/usr/share/doc/xmlstarlet/examples
take xmlstarlet MIT $examples/xsd/table.xsd $examples/xml/{table,tab-obj,unicode}.xml $examples/xsl/sum1.xsl
