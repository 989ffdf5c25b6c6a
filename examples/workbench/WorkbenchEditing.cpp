// SPDX-License-Identifier: BSD-3-Clause
// What is done with the cells that are selected.

#include "Selection.h"
#include "TableView.h"
#include "Workbench.h"

#include <ZyClipboard.h>

#include <algorithm>

void Workbench::onArea(std::function<void(Document &, QRect const &)> const & work)
{
    attempt([this, &work](Document & document) {
        QRect const area = m_view->area();
        if (!area.isEmpty()) {
            work(document, area);
        }
    });
}

/** \param offset 0: above the current row; 1: below it */
void Workbench::insertRow(int offset)
{
    attempt([this, offset](Document & document) {
        QModelIndex const current = m_view->currentIndex();
        int const at = current.isValid() ? current.row() + offset : document.model().rowCount();
        document.insertRows(at, 1);
        m_view->goTo(at, std::max(current.column(), 0));
    });
}

void Workbench::sort(bool ascending)
{
    attempt([this, ascending](Document & document) {
        QModelIndex const current = m_view->currentIndex();
        if (current.isValid()) {
            int const row = current.row();
            int const column = current.column();
            document.sort(column, ascending);
            m_view->goTo(row, column);
        }
    });
}

void Workbench::copy()
{
    onArea([this](Document & document, QRect const & area) {
        copyCells(textsOf(document.model().table(), area));
        tell(QStringLiteral("Copied %1 × %2 cells").arg(area.height()).arg(area.width()));
    });
}

void Workbench::paste()
{
    attempt([this](Document & document) {
        QRect const area = m_view->area();
        ZyString const text = ZyClipboard::ReadText();
        if (!text.isEmpty()) {
            document.paste(std::max(area.top(), 0), std::max(area.left(), 0), cellsOf(text.toQString()));
        }
    });
}
