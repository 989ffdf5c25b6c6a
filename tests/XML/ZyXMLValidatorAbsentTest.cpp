// SPDX-License-Identifier: BSD-3-Clause
// The validator of a library that is built without validation.
#include "ScratchDirectory.h"
#include "ThrowsMessage.h"

#include <ZyException.h>
#include <ZyFilePath.h>
#include <ZyString.h>
#include <ZyXMLStreamReader.h>
#include <ZyXMLValidator.h>

#include <gtest/gtest.h>

namespace
{
char const * const words = "This library is built without validation by XML Schema";

TEST(ZyXMLValidatorAbsent, RefusesToAnswer)
{
    ZyXMLValidator const validator("limits.xml");
    EXPECT_ZY_THROW(validator.isValid("limits.xsd", false), ZyXMLException, words);
    EXPECT_ZY_THROW(validator.isValid("limits.xsd", true), ZyXMLException, words);
}

TEST(ZyXMLValidatorAbsent, IsCopiedAndAssigned)
{
    ZyXMLValidator validator("limits.xml");
    ZyXMLValidator copy(validator);
    copy = validator;
    EXPECT_ZY_THROW(copy.isValid("limits.xsd", false), ZyXMLException, words);
}

TEST(ZyXMLValidatorAbsent, MakesTheValidatingStreamReaderRefuse)
{
    ScratchDirectory const scratch;
    ZyFilePath const document(scratch.write("a.xml", "<a/>"));
    EXPECT_ZY_THROW(ZyXMLStreamReader(document, ZyFilePath("a.xsd")), ZyXMLException, words);
}
} // namespace
