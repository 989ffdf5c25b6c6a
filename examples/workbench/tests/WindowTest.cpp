// SPDX-License-Identifier: BSD-3-Clause
// Mouse and keys by QTest.

#include "WindowTest.h"

#include "Settings.h"
#include "TableModel.h"

#include <QAbstractButton>
#include <QApplication>
#include <QDialog>
#include <QDialogButtonBox>
#include <QDir>
#include <QElapsedTimer>
#include <QLineEdit>
#include <QMenu>
#include <QMenuBar>
#include <QPlainTextEdit>
#include <QStatusBar>
#include <QTest>
#include <QTimer>

namespace
{

constexpr int patienceMs = 30000;

QAction * find(QList<QAction *> const & actions, QString const & text)
{
    for (QAction * const action : actions) {
        if (action->text().remove(u'&').startsWith(text)) {
            return action;
        }
    }
    return nullptr;
}

} // namespace

WindowTest::WindowTest()
{
    Settings::UseFile(QString::fromStdString(home / "settings"));
    openWindow();
}

WindowTest::~WindowTest() = default;

void WindowTest::openWindow()
{
    m_window = std::make_unique<Workbench>();
    m_window->show();
    EXPECT_TRUE(QTest::qWaitForWindowExposed(m_window.get()));
    view().setFocus();
    activate(m_window.get());
}

TableView & WindowTest::view() const
{
    return *m_window->findChild<TableView *>();
}

// Where there is no window manager, nobody hands the keyboard from window to window.
void WindowTest::activate(QWidget * widget)
{
    QElapsedTimer asked;
    EXPECT_TRUE(waitUntil([&] {
        QGuiApplication::sync();
        if (QApplication::activeWindow() != widget && (!asked.isValid() || asked.elapsed() > 500)) {
            asked.start();
            widget->activateWindow();
        }
        return QApplication::activeWindow() == widget && QApplication::focusWidget();
    }));
}

void WindowTest::press(Qt::Key key, Qt::KeyboardModifiers modifiers)
{
    if (!QApplication::activeModalWidget() && !QApplication::activePopupWidget()) {
        activate(m_window.get());
    }
    QWidget * const focus = QApplication::focusWidget();
    QTest::keyClick(focus ? focus : m_window.get(), key, modifiers);
}

void WindowTest::click(int row, int column, Qt::KeyboardModifiers modifiers)
{
    QModelIndex const index = view().model()->index(row, column);
    view().scrollTo(index);
    QTest::mouseClick(view().viewport(), Qt::LeftButton, modifiers, view().visualRect(index).center());
}

void WindowTest::select(int row, int column, int lastRow, int lastColumn)
{
    click(row, column);
    click(lastRow, lastColumn, Qt::ShiftModifier);
}

void WindowTest::type(int row, int column, QString const & text)
{
    click(row, column);
    press(Qt::Key_F2);
    press(Qt::Key_A, Qt::ControlModifier);
    QTest::keyClicks(QApplication::focusWidget(), text);
    press(Qt::Key_Return);
    EXPECT_TRUE(waitUntil([this] { return QApplication::focusWidget() == &view(); })); // typing ends later
}

QAction * WindowTest::action(QString const & menu, QString const & entry) const
{
    QAction * const title = find(m_window->menuBar()->actions(), menu);
    return title ? find(title->menu()->actions(), entry) : nullptr;
}

void WindowTest::choose(QString const & menu, QString const & entry)
{
    QMenuBar * const bar = m_window->menuBar();
    QAction * const title = find(bar->actions(), menu);
    ASSERT_NE(title, nullptr);
    QTest::mouseClick(bar, Qt::LeftButton, Qt::NoModifier, bar->actionGeometry(title).center());
    ASSERT_TRUE(waitUntil([&] { return title->menu()->isVisible(); }));
    QAction * const action = find(title->menu()->actions(), entry);
    ASSERT_NE(action, nullptr) << entry.toStdString();
    QTest::mouseClick(title->menu(), Qt::LeftButton, Qt::NoModifier,
                      title->menu()->actionGeometry(action).center());
}

bool WindowTest::inDialog(std::function<void()> const & trigger,
                          std::function<void(QDialog *)> const & answer)
{
    bool seen = false;
    QTimer timer;
    QObject::connect(&timer, &QTimer::timeout, [&] {
        auto * const dialog = qobject_cast<QDialog *>(QApplication::activeModalWidget());
        if (dialog && dialog->isVisible()) {
            timer.stop();
            seen = true;
            QTimer::singleShot(patienceMs, dialog, [dialog] {
                ADD_FAILURE() << "the dialog is still open";
                dialog->reject();
            });
            answer(dialog);
        }
    });
    timer.start(20);
    trigger();
    return seen;
}

bool WindowTest::nameFile(std::function<void()> const & trigger, std::string const & file)
{
    return inDialog(trigger, [this, &file](QDialog * dialog) {
        auto * const edit = dialog->findChild<QLineEdit *>(QStringLiteral("fileNameEdit"));
        auto * const buttons = dialog->findChild<QDialogButtonBox *>();
        ASSERT_TRUE(edit && buttons);
        activate(dialog);
        edit->setFocus();
        edit->selectAll();
        QTest::keyClicks(edit, QString::fromStdString(file));
        QAbstractButton * const accept = buttons->buttons().first();
        EXPECT_TRUE(
            waitUntil([accept] { return accept->isEnabled(); })); // the dialog reads folders meanwhile
        QTest::keyClick(edit, Qt::Key_Return);
    });
}

bool WindowTest::waitUntil(std::function<bool()> const & holds)
{
    QElapsedTimer timer;
    timer.start();
    while (!holds() && timer.elapsed() < patienceMs) {
        QCoreApplication::processEvents(QEventLoop::AllEvents | QEventLoop::WaitForMoreEvents, 50);
    }
    return holds();
}

std::string WindowTest::cell(int row, int column) const
{
    return view().model()->index(row, column).data().toString().toStdString();
}

std::string WindowTest::cells() const
{
    std::string text;
    auto const & model = static_cast<TableModel const &>(*view().model());
    for (int row = 0; row < model.rowCount(); ++row) {
        for (int column = 0; column < model.columnCount(); ++column) {
            text += (column == 0 ? "" : "|") + cell(row, column);
        }
        text += model.row(row)->type == ZyDataTable::Data ? "\n" : "#\n";
    }
    return text;
}

std::string WindowTest::status() const
{
    return m_window->statusBar()->currentMessage().toStdString();
}

std::string WindowTest::log() const
{
    return m_window->findChild<QPlainTextEdit *>(QStringLiteral("log"))->toPlainText().toStdString();
}

bool WindowTest::logHas(std::string const & text) const
{
    return log().find(text) != std::string::npos;
}

std::string WindowTest::undoText() const
{
    return action(QStringLiteral("Edit"), QStringLiteral("Undo"))->text().toStdString();
}

std::string WindowTest::redoText() const
{
    return action(QStringLiteral("Edit"), QStringLiteral("Redo"))->text().toStdString();
}

std::string WindowTest::title() const
{
    return m_window->windowTitle().toStdString();
}

void WindowTest::picture(QString const & name)
{
    QString const folder = qEnvironmentVariable("ZYWORKBENCH_PICTURES");
    if (!folder.isEmpty()) {
        QDir().mkpath(folder);
        QCoreApplication::processEvents();
        EXPECT_TRUE(m_window->grab().save(folder + u'/' + name + QStringLiteral(".png")));
    }
}

bool WindowTest::open(std::string const & file)
{
    return m_window->openFile(QString::fromStdString(file));
}
