// SPDX-License-Identifier: BSD-3-Clause
// One entry a kind; icons by ZyIconManager.

#include "KindList.h"

#include <ZyDeque.h>
#include <ZyIconManager.h>
#include <ZyString.h>

#include <QPixmap>

namespace
{

constexpr int imageSize = 16;

// Kinds without an image get a clear one, so that all names begin at one line.
QIcon iconOf(ZyFileType::Type type)
{
    QIcon const & icon = ZyIconManager::Get(type);
    if (!icon.availableSizes().isEmpty()) {
        return icon;
    }
    QPixmap clear(imageSize, imageSize);
    clear.fill(Qt::transparent);
    return QIcon(clear);
}

QString extensionsOf(ZyFileType const & kind)
{
    QStringList extensions;
    for (ZyString const & extension : kind.extensions().std_deque()) {
        extensions << extension.toQString();
    }
    return extensions.isEmpty() ? QStringLiteral("no extension") : extensions.join(u' ');
}

} // namespace

KindList::KindList(QWidget * parent) : QListWidget(parent)
{
    setObjectName(QStringLiteral("kinds"));
    setIconSize(QSize(imageSize, imageSize));
    for (int number = ZyFileType::Undefined; number <= ZyFileType::Zip; ++number) {
        auto const type = static_cast<ZyFileType::Type>(number);
        ZyFileType const kind(type);
        auto * const item = new QListWidgetItem(iconOf(type), kind.name().toQString(), this);
        item->setToolTip(extensionsOf(kind));
        item->setData(Qt::UserRole, number);
    }
    connect(this, &QListWidget::itemActivated, this, [this](QListWidgetItem const * item) {
        Q_EMIT chosen(static_cast<ZyFileType::Type>(item->data(Qt::UserRole).toInt()));
    });
}
