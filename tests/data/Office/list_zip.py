# SPDX-License-Identifier: BSD-3-Clause
# Prints the entries of a zip archive as another implementation sees them, one a line:
# name, method, time and date bytes of the local header and of the directory record, content.
import sys
import zipfile

raw = open(sys.argv[1], 'rb').read()
with zipfile.ZipFile(sys.argv[1]) as archive:
    assert archive.testzip() is None
    record = archive.start_dir
    for info in archive.infolist():
        name = info.orig_filename  # as stored; the other field has the separators of the running system
        local = raw[info.header_offset + 10:info.header_offset + 14].hex()
        central = raw[record + 12:record + 16].hex()
        record += 46 + len(name) + len(info.extra) + len(info.comment)
        print(name, info.compress_type, local, central, archive.read(info).decode('utf-8'), sep='|', end='')
