// SPDX-License-Identifier: BSD-3-Clause
// The file of comma-separated text.
#include <ZyCSVFile.h>

#include <ZyFilePath.h>

#include "Core/ZyString_p.h"
#include "Tables/ZyCSV_p.h"

ZyCSVFile::ZyCSVFile()
{
    readsAsFileDevice(typeid(ZyCSVFile));
}

ZyCSVFile::ZyCSVFile(ZyString const & path) : ZyFile(ZyFilePath(path))
{
    readsAsFileDevice(typeid(ZyCSVFile));
}

ZyCSVFile::~ZyCSVFile() = default;

ZyDeque<ZyStringView> ZyCSVFile::ExtractLine(ZyString const & line)
{
    ZyDeque<ZyStringView> fields;
    ZyCSV::forEachField(ZyTextAccess::view(line), ZyCSV::WhiteSpace(),
                        [&](std::string_view field) { fields.add(ZyTextAccess::slice(field)); });
    return fields;
}
