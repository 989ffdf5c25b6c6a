// SPDX-License-Identifier: BSD-3-Clause
// The result of a multi-run analysis: its records, the msw file that keeps them, and the HTML pages that show
// them.
#pragma once

#include <ZyExport.h>

#include <keelbase/YContainers.h>
#include <keelbase/YString.h>

class ZyString;
class ZyXMLDomElement;
class ZyXMLStreamElementWriter;

/** A merit function: what was measured in every run. */
struct XMLReportMeritFunction
{
    YString value; ///< the text of the function, and the heading of its column in the reports
    YString name;  ///< a further name; may be empty, and no report shows it
};

/** What an analysis says about itself. */
struct XMLReportHeader
{
    YVector<XMLReportMeritFunction> meritFunctions; ///< in the order of the columns
    int numCores = 0;                               ///< cores that ran the analysis; written only above 0
    YString date;                                   ///< text of the date, in any form
    YString title;                                  ///< text of the title
    YString analysis;                               ///< text of the analysis card
    YString group;                                  ///< text of the group
};

/** What became of one merit function in one run. A default one stands for a value that is missing. */
struct XMLReportSensValue
{
    /** What #norm means. */
    enum Status {
        Valid = 0,          ///< #norm is the normalised sensitivity
        DivisionByZero = 1, ///< #norm could not be formed
        Ambiguous = 2,      ///< the parameters of the run disagree, so that there is no single figure
        NotComputed = 3     ///< nobody has computed it yet
    };

    double value = 0.0;       ///< the value of the merit function
    double delta = 0.0;       ///< #value less that of the reference run, which is the one with case 1
    double norm = 0.0;        ///< relative change of the value over relative change of the parameter
    int status = NotComputed; ///< one of Status
};

/** A parameter that was perturbed in a run. */
struct XMLReportParameter
{
    YString name;           ///< what was perturbed
    double nominal = 0.0;   ///< the value without perturbation
    double tol = 0.0;       ///< the tolerance, when #hasTol says that there is one
    double usedValue = 0.0; ///< the value in the run
    bool hasTol = false;    ///< whether #tol was given
};

/**
 * One run of an analysis. Case 1 is the reference run.
 *
 * The vectors grow when they are written to, and when they are read through an object that is not const. Read
 * them through a const reference: what is missing then reads as a default record.
 */
struct ZYCORE_EXPORT XMLReportInfo
{
    YString name;                ///< for programs: "key:value/key:value/...", from which labels are made
    bool hasName = false;        ///< whether #name is written
    YString description;         ///< for people
    bool hasDescription = false; ///< whether #description is written; reading a file does not set it
    int caseNumber = 0;          ///< the key in a table of runs
    kb_int64 seed = 0;           ///< random seed of the run
    bool hasSeed = false;        ///< whether #seed is written
    YVector<XMLReportSensValue> sensValues; ///< one a merit function, under the same index
    YVector<XMLReportParameter> parameters; ///< what was perturbed

    /**
     * Gives every record of #sensValues its norm and its status.
     *
     * In the reference run they are 0.0 and Valid. In others the norm is the quotient of
     * getNormalisedSensitivity() when all parameters agree on it within 1e-7 relative.
     *
     * \deliberate{last-parameter-decides-the-error} Whether a quotient cannot be formed is told by the last
     * parameter that was looked at: when only an earlier one failed, the run counts as one whose parameters
     * disagree, or agree on 0.
     */
    void buildNormalisedSensitivity();

    /**
     * The relative change of a value over the relative change of a parameter:
     * delta / value * nominal / (usedValue - nominal). Missing records read as default ones.
     *
     * \deliberate{norm-by-own-value} The divisor is the value of this run and not that of the reference run.
     *
     * \param parameter, sensValue zero-based indexes
     * \param error set to whether there is no quotient, which then is 0.0: the parameter was not moved, or
     * the value is 0. Comparisons are exact, and a NaN equals nothing.
     */
    double getNormalisedSensitivity(int parameter, int sensValue, bool * error) const;
};

/**
 * Writes the result of an analysis as an msw file, whole or not at all. The runs come in the order in which
 * the table is walked, and the same content gives the same bytes in every process. Control characters in
 * texts are written as they are, and other programs refuse such a file.
 *
 * \param path UTF-8, with slashes of either kind
 * \return false when anything fails; an earlier file is untouched then
 */
ZYCORE_EXPORT bool sp_WriteMswFile(YString const & path, YHashTable<XMLReportInfo> const & table,
                                   XMLReportHeader const & header);

/**
 * Reads an msw file, and the files that it appends, into a table and a header; then computes the deltas and
 * the normalised sensitivities, and makes a label for every run without a description.
 *
 * Appended files may append others, up to four levels below the first file. Their paths are relative to the
 * working directory. Every merit function of every file becomes a column of its own. What a file holds adds
 * to what the table holds already, which is not cleared.
 *
 * Runs get the description that the file has only when they have no name there; with neither it is "Run=" and
 * the case number. The labels are short texts such as "Ref: R1.res", made from the name and as long as needed
 * to tell the runs apart; runs with equal names get none.
 *
 * Foreign input is bounded: a table takes 16,777,216 values, parameters, runs and merit functions together,
 * those values included that a run is given because another one has them; at most 65,536 files are read.
 *
 * \return false when any file is missing, malformed, of another version or too deep; or too much. What was
 *         read before stays, and everything is computed from it.
 */
ZYCORE_EXPORT bool sp_CompileSensReportData(YString const & path, YHashTable<XMLReportInfo> * table,
                                            XMLReportHeader * header);

/**
 * Adds a merit function to an msw file. The file is read and written anew, with what it appends merged in.
 *
 * \deliberate{append-merit-data-loses-descriptions} Descriptions get lost, as reading does not mark them as to be
 * written; and texts that the header lacks become "unknown".
 *
 * \param value, name the new merit function
 * \param values one for each entry of \a cases; other runs get the value 0
 * \param cases case numbers
 * \return false, with the file untouched: the sizes differ; the file cannot be read; a case is not in it, is
 * named twice, or lacks a value of an earlier merit function. False also when the file cannot be written.
 */
ZYCORE_EXPORT bool sp_AppendMeritData(YString const & path, YString const & value, YString const & name,
                                      YVector<double> const & values, YVector<int> const & cases);

/**
 * Makes an element the root of an msw file: its name, namespaces, schema location, version and revision.
 * \throws ZyNullDomElementException the element is null: "Null dom element"
 */
ZYCORE_EXPORT void sp_DecorateMswRoot(ZyXMLDomElement & root);

/**
 * Writes the attributes of the root of an msw file. For hosts that write the file while the analysis runs;
 * the element has been named "msw" by its writer.
 * \throws as ZyXMLStreamElementWriter::writeAttribute
 */
ZYCORE_EXPORT void sp_DecorateMswRoot(ZyXMLStreamElementWriter * root);

/** Whether a root element says that it is of version "1.0", or does not say. */
ZYCORE_EXPORT bool sp_TestMswVersion(ZyXMLDomElement & root);

/**
 * Sets an attribute to a number exactly, as the Base64 text of its bytes. When the option WriteXMLAsciiReals
 * is true, an attribute with "_ascii" behind the name gets the number for people, with ten digits.
 *
 * \deliberate{option-is-read-once} The option is read at the first call in the process; a later change has no effect.
 *
 * \throws as ZyXMLDomElement::setAttribute
 * \threads any, for different documents
 */
ZYCORE_EXPORT void sp_WriteElemRealValue(ZyXMLDomElement & element, ZyString const & name, double value);

/**
 * Writes the log of a Monte Carlo analysis as an HTML page: the header, a table of the merit functions (of
 * the seeds, when there are none), and the parameters of each run. Texts are not escaped.
 *
 * \param path of the page; UTF-8, with slashes of either kind
 * \param cssPath of a style sheet to embed; when it cannot be opened, a built-in one is
 * \return whether the page could be opened for writing; later failures are not told
 */
ZYCORE_EXPORT bool sp_BuildMonteCarloHTMLReport(YString const & path, YString const & cssPath,
                                                YHashTable<XMLReportInfo> const & table,
                                                XMLReportHeader const & header);

/** The same for a worst-case analysis, where no table takes the place of missing merit functions. */
ZYCORE_EXPORT bool sp_BuildWorstCaseHTMLReport(YString const & path, YString const & cssPath,
                                               YHashTable<XMLReportInfo> const & table,
                                               XMLReportHeader const & header);

/**
 * Writes the report of a sensitivity analysis as an HTML page: one table, with value, delta and norm of each
 * merit function. Texts are not escaped.
 *
 * \param path, cssPath as in sp_BuildMonteCarloHTMLReport
 * \param sortColumn 0 sorts by case number and 1 by description, ascending; from 2 on, three a merit
 * function, by value, delta and norm, with the largest magnitude first. Numbers go by magnitude, equal runs
 * as in the table. More than one beyond the last column of the reference run it means that column.
 *
 * \return whether the page could be opened for writing; later failures are not told
 */
ZYCORE_EXPORT bool sp_BuildHTMLSensitivityReport(YString const & path, YString const & cssPath,
                                                 YHashTable<XMLReportInfo> const & table,
                                                 XMLReportHeader const & header, int sortColumn);
