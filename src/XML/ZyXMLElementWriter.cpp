// SPDX-License-Identifier: BSD-3-Clause
// What all element writers share: nothing but the base itself.
#include <ZyXMLElementWriter.h>

#include <ZyString.h>

ZyXMLElementWriter::ZyXMLElementWriter() = default;
ZyXMLElementWriter::~ZyXMLElementWriter() = default;
