// SPDX-License-Identifier: BSD-3-Clause
// The way from one path to another, and back. Qt resolves "." and ".."; but it knows drive letters and
// servers on one system only, and so it sees the text behind the root, and the root is put back in front. In
// here, separators are slashes.
#include <ZyFilePath.h>

#include "Files/ZyFilePath_p.h"

#include <ZyException.h>

#include <QDir>
#include <QString>
#include <QStringList>

#include <algorithm>
#include <string_view>

namespace
{
QLatin1Char const slash('/');

QString slashed(std::string_view text)
{
    return QString::fromUtf8(text.data(), static_cast<int>(text.size())).replace(QLatin1Char('\\'), slash);
}

// Without dots and doubled slashes. One slash goes in front of what stands behind a root: two would be the
// beginning of the name of a server to Qt on the home platform, and it resolves nothing in those.
QString cleanedBehindRoot(QString const & path)
{
    auto const isNoSlash = [](QChar sign) { return sign != slash; };
    auto const first = std::find_if(path.begin(), path.end(), isNoSlash);
    return QDir::cleanPath(slash + path.mid(static_cast<int>(first - path.begin())));
}

// What stands behind the root when `path`, which has none, is seen from `directory`.
QString behindRoot(QString const & directory, QString const & path, QString const & root)
{
    QString const rest = directory.mid(root.size());
    if (!path.startsWith(slash)) {
        return rest + slash + path;
    }
    if (!root.startsWith(QLatin1String("//"))) {
        return path;
    }
    int const shareEnd = rest.indexOf(slash, 1); // on a server, a path from the root stays in its share
    return (shareEnd < 0 ? rest : rest.left(shareEnd)) + path;
}

QString resolved(QString const & directory, QString const & path, QString const & root)
{
    QString const cleaned = cleanedBehindRoot(behindRoot(directory, path, root));
    bool const bareServer = cleaned == QLatin1String("/") && root.startsWith(QLatin1String("//"));
    return bareServer ? root : root + cleaned;
}

QStringList segments(QString const & path, int rootSize)
{
    return cleanedBehindRoot(path.mid(rootSize)).split(slash, Qt::SkipEmptyParts);
}

// The way between two paths with roots of one length.
QString way(QString const & directory, QString const & path, int rootSize)
{
    QStringList const from = segments(directory, rootSize);
    QStringList const to = segments(path, rootSize);
    int common = 0;
    while (common < from.size() && common < to.size() &&
           from[common].compare(to[common], Qt::CaseInsensitive) == 0) {
        ++common;
    }
    QString const up = QStringLiteral("../").repeated(from.size() - common);
    QString const result = up + to.mid(common).join(slash);
    return result.isEmpty() ? QStringLiteral(".") : result;
}
} // namespace

ZyFilePath ZyFilePath::absolute(ZyFilePath const & path) const
{
    if (path.isAbsolute()) {
        return path;
    }
    if (isRelative()) {
        if (isNull() && path.isNull()) {
            return ZyFilePath();
        }
        throw ZyInvalidCallException("Cannot generate absolute path from relative base path");
    }
    std::string_view const base = d()->text.toStdString();
    QString const cleaned = resolved(slashed(ZyPathText::directory(base)),
                                     slashed(path.d()->text.toStdString()), slashed(ZyPathText::root(base)));
    if (cleaned.contains(QLatin1String(".."))) {
        throw ZyInvalidCallException("Path becomes invalid:" + ZyString(cleaned));
    }
    return ZyFilePath(ZyString(cleaned));
}

ZyFilePath ZyFilePath::relative(ZyFilePath const & path) const
{
    if (isRelative() || path.isRelative()) {
        throw ZyInvalidCallException("Cannot find relative path when one is already relative");
    }
    std::string_view const base = d()->text.toStdString();
    std::string_view const target = path.d()->text.toStdString();
    std::string_view const root = ZyPathText::root(base);
    if (!ZyPathText::same(root, ZyPathText::root(target))) {
        return path;
    }
    return ZyFilePath(
        ZyString(way(slashed(ZyPathText::directory(base)), slashed(target), slashed(root).size())));
}
