// SPDX-License-Identifier: BSD-3-Clause
// The namespaces of the suite's own documents.
#pragma once

namespace ZyXMLNames
{
/** Of all elements that the standard bindings write. */
constexpr char const * types = "http://schemas.zycore.example/schemas/application/zytypes/";
} // namespace ZyXMLNames
