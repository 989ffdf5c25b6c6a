// SPDX-License-Identifier: BSD-3-Clause
// The stream reader that validates first. Apart from the others, since validation stands above the streams.
#include <ZyXMLStreamReader.h>

#include <ZyFilePath.h>
#include <ZyString.h>
#include <ZyXMLValidator.h>

ZyXMLStreamReader::ZyXMLStreamReader(ZyFilePath const & file, ZyFilePath const & schema)
    : ZyXMLStreamReader(file)
{
    ZyXMLValidator(file.path()).isValid(schema.path(), true);
}
