// SPDX-License-Identifier: BSD-3-Clause
// The XML form of a circuit: bindings of its types, reading with rules and schema, writing.
#pragma once

#include "Circuit.h"

#include <ZyXMLObject.h>

#include <QString>

/** An element named after the kind, with attributes only. */
template <>
struct ZyXMLObject<Component, void>
{
    /** Puts the attributes into an element that the caller has opened. */
    static void Write(ZyXMLElementWriter & element, Component const & component);
    /** How such an element is read, whatever its kind. */
    static ZySharedPtr<ZyXMLLambdaDefinition<Component>> LoadRule();
};

/** An element named after the kind, with attributes only. */
template <>
struct ZyXMLObject<MeritFunction, void>
{
    static void Write(ZyXMLElementWriter & element, MeritFunction const & merit);
    static ZySharedPtr<ZyXMLLambdaDefinition<MeritFunction>> LoadRule();
};

/** The attributes "from", "to" and "pointsPerDecade". */
template <>
struct ZyXMLObject<Sweep, void>
{
    static void Write(ZyXMLElementWriter & element, Sweep const & sweep);
    static ZySharedPtr<ZyXMLLambdaDefinition<Sweep>> LoadRule();
};

/** The attribute "name". */
template <>
struct ZyXMLObject<Node, void>
{
    static void Write(ZyXMLElementWriter & element, Node const & node);
    static ZySharedPtr<ZyXMLLambdaDefinition<Node>> LoadRule();
};

/** All of the above as children, made of their bindings. */
template <>
struct ZyXMLObject<Circuit, void>
{
    static void Write(ZyXMLElementWriter & element, Circuit const & circuit);
    static ZySharedPtr<ZyXMLLambdaDefinition<Circuit>> LoadRule();
};

/** The schema of circuit documents, as text. */
QString circuitSchema();

/**
 * Reads a circuit, and looks at all that can be told to be wrong with it before the schema, which names no
 * component, has its say.
 * \throws AnalysisError the file holds no circuit that can be computed
 */
Circuit readCircuit(QString const & file);

/** Writes a circuit so that readCircuit() gives the same numbers. \throws ZyException it cannot be written */
void writeCircuit(QString const & file, Circuit const & circuit);
