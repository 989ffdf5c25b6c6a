// SPDX-License-Identifier: BSD-3-Clause
// What the sources of the result files share: the names of the format, and the steps of reading.
#pragma once

#include <XMLReport.h>
#include <ZyString.h>

namespace XMLReportNames
{
/** Elements and attributes of an msw file. Made once, as there are many of each in a file. */
struct Names
{
    ZyString const msw = "msw";
    ZyString const header = "header";
    ZyString const meritFunction = "meritfunction";
    ZyString const sensValue = "sensval";
    ZyString const steps = "steps";
    ZyString const step = "step";
    ZyString const parameter = "parameter";
    ZyString const append = "append";
    ZyString const file = "file";

    ZyString const version = "version";
    ZyString const coreId = "coreid";
    ZyString const numCores = "numcores";
    ZyString const date = "date";
    ZyString const title = "title";
    ZyString const analysis = "analysis";
    ZyString const group = "group";
    ZyString const value = "value";
    ZyString const name = "name";
    ZyString const caseNumber = "case";
    ZyString const seed = "seed";
    ZyString const description = "description";
    ZyString const nominal = "nom";
    ZyString const usedValue = "usedvalue";
    ZyString const tol = "tol";
    ZyString const path = "path";
};

/** All of them. */
Names const & names();
} // namespace XMLReportNames

namespace XMLReport
{
/** Values, parameters, runs and merit functions that a table may hold altogether when a file is read into it.
 */
constexpr long long maxRecords = 1LL << 24;

/**
 * Gives every value its difference to the one of the reference run, and every run its normalised
 * sensitivities. Runs that lack a value of the reference run are given it.
 *
 * \return false when that would be too many values: nothing is computed then
 */
bool computeDeltas(YHashTable<XMLReportInfo> & table);

/** Gives every run without a description a short text from its name that no other one of them gets. */
void makeLabels(YHashTable<XMLReportInfo> & table);
} // namespace XMLReport
