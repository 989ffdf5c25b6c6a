// SPDX-License-Identifier: BSD-3-Clause
// The icons of the process, each loaded once.
#include <ZyIconManager.h>

#include <ZyDeque.h>
#include <ZyIcon.h>
#include <ZyPair.h>
#include <ZySharedPtr.h>
#include <ZyString.h>
#include <ZyUniquePtr.h>

#include <QGuiApplication>
#include <QIcon>
#include <QImageReader>
#include <QString>

namespace
{
using NamedIcon = ZyPair<ZyString, QIcon>;

bool hasDesktop()
{
    return qobject_cast<QGuiApplication *>(QCoreApplication::instance()) != nullptr;
}

// An icon of a file that is no image would not be null; without a desktop, one of an image ends the process.
QIcon loaded(ZyString const & name)
{
    QString const file = name.toQString();
    bool const isImage = hasDesktop() && !file.isEmpty() && QImageReader(file).canRead();
    return isImage ? QIcon(file) : QIcon();
}
} // namespace

class ZyIconManager::Private : public ZyPrivateObject
{
public:
    void loadEarly()
    {
        for (ZySharedPtr<NamedIcon> const & named : early.std_deque()) {
            named->second = loaded(named->first);
        }
        early.clear();
    }
    QIcon const & add(ZyString const & name)
    {
        ZySharedPtr<NamedIcon> const named(new NamedIcon(name, loaded(name)));
        if (!hasDesktop()) {
            early.add(named);
        }
        icons.add(named);
        return named->second;
    }

    ZyDeque<ZySharedPtr<NamedIcon>> icons; ///< in the order of their first request
    ZyDeque<ZySharedPtr<NamedIcon>> early; ///< those of them that were asked for before there was a desktop
};

ZyIconManager::ZyIconManager() : m_d(new Private) {}
ZyIconManager::~ZyIconManager() = default;

ZyIconManager & ZyIconManager::Get()
{
    static ZyUniquePtr<ZyIconManager> const manager(new ZyIconManager);
    return *manager;
}

QIcon const & ZyIconManager::Get(ZyString const & name)
{
    Private & state = *Get().d();
    if (!state.early.isEmpty() && hasDesktop()) {
        state.loadEarly();
    }
    for (ZySharedPtr<NamedIcon> const & named : state.icons.std_deque()) {
        if (named->first == name) {
            return named->second;
        }
    }
    return state.add(name);
}

QIcon const & ZyIconManager::Get(ZyIcon const & icon)
{
    return Get(icon.name());
}

QIcon const & ZyIconManager::Get(ZyFileType const & type)
{
    return Get(type.icon());
}

QIcon const & ZyIconManager::Get(ZyFileType::Type type)
{
    return Get(ZyFileType(type));
}

unsigned int ZyIconManager::NumberIcons()
{
    return Get().d()->icons.size();
}
