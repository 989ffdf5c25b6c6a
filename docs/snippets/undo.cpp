// SPDX-License-Identifier: BSD-3-Clause
// Quoted in docs/guide-services.md.
#include <ZyCore.h>

#include <iostream>
#include <utility>

// Doing and undoing a replacement is the same: what is not in the document is in the action.
class ReplaceCell : public ZyAction
{
public:
    ReplaceCell(ZyVector<ZyString> & row, unsigned int column, ZyString const & text)
        : ZyAction("Replace cell"), m_row(row), m_column(column), m_text(text)
    {}

    void performAction() override { std::swap(m_row[m_column], m_text); }
    void performUndo() override { std::swap(m_row[m_column], m_text); }

private:
    ZyVector<ZyString> & m_row;
    unsigned int m_column;
    ZyString m_text;
};

int main()
{
    ZyVector<ZyString> row{"R1", "resistor", "4700"};
    ZyUndoManager history;
    auto const show = [&](char const * what) {
        std::cout << what << ": " << row[0].c_str() << ' ' << row[2].c_str() << ", to undo "
                  << history.sizeUndo() << ", to redo " << history.sizeRedo() << '\n';
    };

    // One gesture that changes two cells is one step of the history.
    ZyUniquePtr<ZyActionGroup> paste(new ZyActionGroup("Paste"));
    paste->addAction(ZyUniquePtr<ZyAction>(new ReplaceCell(row, 0, "R7")));
    paste->addAction(ZyUniquePtr<ZyAction>(new ReplaceCell(row, 2, "2200")));
    std::cout << paste->description().c_str() << '\n';
    paste->performAction(); // the history runs nothing that is new
    history.add(std::move(paste));
    show("done");
    history.performUndo();
    show("undone");
    history.performRedo();
    show("redone");
}
