// SPDX-License-Identifier: BSD-3-Clause
// A result file out, in again, and a page made of it, for the guide.

#include <ZyCore.h>

#include <iostream>

// A divider of two resistors: run 1 is the nominal one, each other run has moved one resistor.
XMLReportInfo divider(int run, double upper, double lower, char const * moved)
{
    XMLReportInfo info;
    info.caseNumber = run;
    info.name = moved;
    info.hasName = info.name != "";
    info.sensValues[0].value = lower / (upper + lower); // writing makes the vector longer
    if (upper != 1000) {
        info.parameters.add({"R1.resistance", 1000, 0.0, upper, false});
    }
    if (lower != 3000) {
        info.parameters.add({"R2.resistance", 3000, 0.0, lower, false});
    }
    return info;
}

int main()
{
    XMLReportHeader header;
    header.title = "Divider";
    header.analysis = "Sensitivity";
    header.meritFunctions.add({"Ratio", ""});

    YHashTable<XMLReportInfo> runs;
    runs.add(1, divider(1, 1000, 3000, ""));
    runs.add(2, divider(2, 1010, 3000, "Refdes:R1/DevParam:resistance"));
    runs.add(3, divider(3, 1000, 3030, "Refdes:R2/DevParam:resistance"));
    if (!sp_WriteMswFile("divider.msw", runs, header)) {
        return 1;
    }

    // Reading computes what the file does not store: deltas, sensitivities, labels.
    YHashTable<XMLReportInfo> found;
    XMLReportHeader foundHeader;
    if (!sp_CompileSensReportData("divider.msw", &found, &foundHeader)) {
        return 1;
    }
    found.forEach([](int run, XMLReportInfo const & info) {
        XMLReportSensValue const & ratio =
            info.sensValues[0]; // info is const: reading does not make it longer
        std::cout << run << ": " << info.description.c_str() << ", " << ratio.value << ", " << ratio.norm
                  << '\n';
    });

    // Column 4 is the first merit function's norm: what matters most comes first.
    std::cout << sp_BuildHTMLSensitivityReport("divider.html", "", found, foundHeader, 4) << '\n';
}
