// SPDX-License-Identifier: BSD-3-Clause
// The clipboard of the desktop, over Qt's.
#include <ZyClipboard.h>

#include <ZyDeque.h>
#include <ZyException.h>

#include <QByteArray>
#include <QClipboard>
#include <QGuiApplication>
#include <QMimeData>
#include <QString>

#include <memory>

namespace
{
// With an application that has no desktop Qt gives a clipboard that cannot be used.
QClipboard & clipboard()
{
    bool const hasDesktop = qobject_cast<QGuiApplication *>(QCoreApplication::instance()) != nullptr;
    QClipboard * const board = hasDesktop ? QGuiApplication::clipboard() : nullptr;
    if (!board) {
        throw ZyNoClipboardException();
    }
    return *board;
}

void setData(QMimeData & target, ZyString const & mimeType, ZyString const & data)
{
    target.setData(mimeType.toQString(), QByteArray(data.c_str()));
}
} // namespace

ZyString ZyClipboard::ReadText()
{
    return ZyString(clipboard().text(QClipboard::Clipboard));
}

ZyString ZyClipboard::ReadText(ZyString const & mimeType)
{
    QMimeData const * const data = clipboard().mimeData(QClipboard::Clipboard);
    QString const type = mimeType.toQString();
    if (!data || !data->hasFormat(type)) {
        throw ZyInvalidMimeDataException(mimeType);
    }
    return ZyString(data->data(type).toStdString());
}

void ZyClipboard::WriteText(ZyString const & text)
{
    clipboard().setText(text.toQString(), QClipboard::Clipboard);
}

void ZyClipboard::WriteText(ZyString const & data, ZyString const & mimeType)
{
    WriteText(ZyDeque<Item>{{mimeType, data}});
}

void ZyClipboard::WriteText(ZyDeque<Item> const & items)
{
    QClipboard & board = clipboard();
    auto offer = std::make_unique<QMimeData>();
    for (Item const & item : items.std_deque()) {
        setData(*offer, item.mimeType, item.data);
    }
    board.setMimeData(offer.release(), QClipboard::Clipboard);
}
