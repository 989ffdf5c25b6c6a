// SPDX-License-Identifier: BSD-3-Clause
// What a foreign document may demand of the parser of documents in memory, looked at before it is parsed.
#pragma once

#include <ZyString.h>

#include <QByteArray>
#include <QString>

#include <cstddef>

namespace ZyXMLDomGuard
{
/** Elements in each other. The parser, and everything that walks a tree, uses the stack of the machine. */
constexpr int maxDepth = 512;
/** Bytes that a compressed file may unpack to. */
constexpr std::size_t maxUnpacked = 256u << 20;
/** Characters that entities may expand to. */
constexpr long long maxExpansion = 16 << 20;

/**
 * Whether the parser can take a document. Says nothing about its being well-formed, and is quick unless the
 * document declares entities.
 *
 * \param what how the message calls the document
 * \throws ZyInvalidXMLException "Invalid XML: " \a what " is nested deeper than 512 levels", "Invalid XML: " \a what
 *         " expands beyond bounds"
 */
void check(QByteArray const & document, ZyString const & what);
/** The same for a text, whatever encoding its declaration names. */
void check(QString const & document, ZyString const & what);

/** \throws ZyInvalidXMLException "Invalid XML: " \a what " is nested deeper than 512 levels" */
[[noreturn]] void refuseDepth(ZyString const & what);

/**
 * Undoes qCompress, as qUncompress does, but takes no size on trust.
 * \return empty when the bytes are no such data, are damaged, or unpack to more than the bound
 */
QByteArray unpacked(QByteArray const & packed);
} // namespace ZyXMLDomGuard
