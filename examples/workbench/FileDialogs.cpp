// SPDX-License-Identifier: BSD-3-Clause
// Dialogs whose filters come from the table of kinds.

#include "FileDialogs.h"

#include <ZyString.h>

#include <QFileDialog>
#include <QFileInfo>

namespace
{

/** A filter of a dialog, and what is put behind a name without an extension. */
struct Filter
{
    QString text;
    QString suffix;
};

QString filterOf(ZyFileType::Type type)
{
    return ZyFileType(type).filter().toQString();
}

QStringList filtersToOpen()
{
    QStringList filters(QStringLiteral("Tables (*.csv *.zyt.xml *.msw)"));
    for (int type = ZyFileType::Directory + 1; type <= ZyFileType::Zip; ++type) {
        filters << filterOf(static_cast<ZyFileType::Type>(type));
    }
    return filters << filterOf(ZyFileType::Undefined);
}

QString choice(QFileDialog & dialog)
{
    return dialog.exec() == QDialog::Accepted ? dialog.selectedFiles().value(0) : QString();
}

void suggest(QFileDialog & dialog, QString const & suggestion)
{
    QFileInfo const info(suggestion);
    dialog.setDirectory(info.isDir() ? suggestion : info.absolutePath());
    if (!info.isDir()) {
        dialog.selectFile(info.fileName());
    }
}

QString askForTarget(QWidget * parent, QString const & title, QString const & suggestion,
                     QList<Filter> const & filters)
{
    QFileDialog dialog(parent, title);
    dialog.setAcceptMode(QFileDialog::AcceptSave);
    QStringList texts;
    for (Filter const & filter : filters) {
        texts << filter.text;
    }
    dialog.setNameFilters(texts);
    auto const takeSuffix = [&](QString const & chosen) {
        dialog.setDefaultSuffix(filters[texts.indexOf(chosen)].suffix);
    };
    QObject::connect(&dialog, &QFileDialog::filterSelected, takeSuffix);
    takeSuffix(texts.first());
    suggest(dialog, suggestion);
    return choice(dialog);
}

} // namespace

QString askForFileToOpen(QWidget * parent, QString const & directory, ZyFileType const & kind)
{
    QFileDialog dialog(parent, QStringLiteral("Open"), directory);
    dialog.setFileMode(QFileDialog::ExistingFile);
    dialog.setNameFilters(filtersToOpen());
    if (kind.type() != ZyFileType::Undefined) {
        dialog.selectNameFilter(kind.filter().toQString());
    }
    return choice(dialog);
}

QString askForFileToSave(QWidget * parent, QString const & suggestion)
{
    QList<Filter> filters{{filterOf(ZyFileType::CSV), QStringLiteral("csv")},
                          {QStringLiteral("Rich table (*.zyt.xml)"), QStringLiteral("zyt.xml")}};
    if (suggestion.endsWith(QStringLiteral(".zyt.xml"), Qt::CaseInsensitive)) {
        filters.swapItemsAt(0, 1);
    }
    return askForTarget(parent, QStringLiteral("Save as"), suggestion, filters);
}

// The table of kinds spells the extension of workbooks "xslx": its filter would hide every workbook there is.
QString askForWorkbook(QWidget * parent, QString const & suggestion)
{
    return askForTarget(parent, QStringLiteral("Export workbook"), suggestion,
                        {{QStringLiteral("Workbook (*.xlsx)"), QStringLiteral("xlsx")}});
}

QString askForXmlSheet(QWidget * parent, QString const & suggestion)
{
    return askForTarget(parent, QStringLiteral("Export XML sheet"), suggestion,
                        {{filterOf(ZyFileType::XML), QStringLiteral("xml")}});
}
