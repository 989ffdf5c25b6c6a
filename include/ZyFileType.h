// SPDX-License-Identifier: BSD-3-Clause
// The kinds of file that the suite knows.
#pragma once

#include <ZyExport.h>

#include <functional>

class ZyFilePath;
class ZyIcon;
class ZyString;
template <class T>
class ZyDeque;

/**
 * One of the kinds of file that the suite knows, told by the extension.
 *
 * \code
 * ZyFileType const type(ZyFilePath("C:/runs/gain.CSV"));
 * type == ZyFileType::CSV;   // true
 * type.name();               // CSV
 * type.filter();             // CSV (*.csv)
 * \endcode
 *
 * Behind it stands one table for the process. What it gives by reference is valid until the library is
 * unloaded. An object keeps any number; one that is no kind has the name, icon and extensions of Undefined.
 *
 * \threads any: a value, and the table never changes; icons are only named here, not loaded
 */
class ZYCORE_EXPORT ZyFileType
{
public:
    /**
     * The kinds, in the order of the table; the names are those of name(), except for Spreadsheet.
     *
     * \deliberate{first-row-wins} Two extensions are claimed by two kinds each: ".cir" is a Model and not a Netlist,
     * ".zycmp" a Component and not a Schematic.
     */
    enum Type : int {
        Undefined = 0,  ///< no extension
        Directory = 1,  ///< no extension; a path that ends with a separator
        AEExamples = 2, ///< .zyhtm
        Component = 3,  ///< .zycmp
        CSV = 4,        ///< .csv
        /// .log.html \deliberate{report-by-type-only} The extension of a path is what follows its last dot,
        /// so that no path is of this kind; hosts choose it by number or name.
        QRMReport = 5,
        Graph = 6, ///< .zygpx .zygph
        Icon = 7,  ///< .ico
        /// .bmp .jpg .png .JPG .jpeg \deliberate{upper-case-extensions} Extensions are compared without regard to case,
        /// yet some are listed in capitals too: a dialog that minds case filters by the list.
        Image = 8,
        Model = 9,          ///< .lb .lib .mod .cir .spi .fam .mdl .sp .sp2 .model .pkg .prm .sub .sio .ckt
        Netlist = 10,       ///< .net .cir .deck .out .init
        RichText = 11,      ///< .rtf
        Schematic = 12,     ///< .zysch .zycmp .sch
        Script = 13,        ///< .zyscr
        SymbolLibrary = 14, ///< .zyslb .slb
        /// .zyslb .slb \deliberate{text-repeats-symbol-library} The extensions are those of SymbolLibrary, which stands
        /// first: no path is of this kind; hosts choose it by number or name.
        Text = 15,
        VerilogA = 16,     ///< .va .vams
        VerilogHDL = 17,   ///< .v
        VisualScript = 18, ///< .zyvis
        XML = 19,          ///< .xml
        /// .xslx, with the name "Spreadsheet (XLSX)" \deliberate{xslx-spelling} The letters stand in this order; a
        /// workbook ".xlsx" is Undefined.
        Spreadsheet = 20,
        Zip = 21, ///< .zip .ZIP
    };

    /** That kind; the number is kept whatever it is. */
    ZyFileType(Type type);
    /** As ToType() tells. */
    ZyFileType(ZyFilePath const & path);
    ZyFileType(ZyFileType const & other);
    virtual ~ZyFileType();

    ZyFileType & operator=(ZyFileType const & other);

    /** Whether the numbers are equal. */
    bool operator==(ZyFileType const & other) const;
    bool operator==(Type const & type) const;

    /** The number. */
    Type type() const;
    /** The same as type(). */
    operator Type() const;

    /** The name that users see. */
    ZyString const & name() const;
    /** The icon, perhaps with the empty name. */
    ZyIcon const & icon() const;
    /** The extensions, each with its dot. */
    ZyDeque<ZyString> const & extensions() const;
    /**
     * The filter of a file dialog: name and patterns, "Graph (*.zygpx *.zygph)"; for Undefined and Directory
     * "All Files (*)".
     *
     * \deliberate{filter-of-no-kind} A number that is no kind has no patterns, and the filter "Undefined )".
     */
    ZyString filter() const;

    /** The first kind of that name, compared without regard to case; Undefined when there is none. */
    static Type FromName(ZyString const & name);
    /**
     * Directory for a path that ends with a separator, whatever is on the disk; else the first kind that
     * lists the extension, compared without regard to case; else Undefined.
     */
    static Type ToType(ZyFilePath const & path);

private:
    class ZYCORE_PRIVATE Manager;
    using AddType = std::function<void(Type, ZyString &&, ZyString &&, ZyDeque<ZyString> &&)>;
    ZYCORE_PRIVATE static void LoadTypes(AddType const & add);

    Type m_type;
};
