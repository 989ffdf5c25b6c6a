// SPDX-License-Identifier: BSD-3-Clause
// The names of the suite's own documents that more than one source needs.
#pragma once

class ZyString;

namespace ZyXMLNames
{
// Made while the library is loaded.
extern ZyString const row;   ///< of a row of a rich table
extern ZyString const item;  ///< of an item of a row
extern ZyString const value; ///< of a value of an item
extern ZyString const types; ///< the namespace of all elements that the standard bindings write

/** The namespace of result files. */
constexpr char const * msw = "http://schemas.zycore.example/schemas/application/msw/";
} // namespace ZyXMLNames
