// SPDX-License-Identifier: BSD-3-Clause
// The namespaces and relationship types of the office package format.
#pragma once

/** \source ECMA-376, transitional */
namespace ZyOOXMLNames
{
constexpr char const * contentTypes = "http://schemas.openxmlformats.org/package/2006/content-types";
constexpr char const * packageRelationships = "http://schemas.openxmlformats.org/package/2006/relationships";
constexpr char const * relationships = "http://schemas.openxmlformats.org/officeDocument/2006/relationships";
constexpr char const * officeDocument =
    "http://schemas.openxmlformats.org/officeDocument/2006/relationships/officeDocument";
constexpr char const * worksheet =
    "http://schemas.openxmlformats.org/officeDocument/2006/relationships/worksheet";
constexpr char const * spreadsheet = "http://schemas.openxmlformats.org/spreadsheetml/2006/main";
} // namespace ZyOOXMLNames
