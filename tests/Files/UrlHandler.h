// SPDX-License-Identifier: BSD-3-Clause
// Takes the place of the desktop and records what it is asked to open.
#pragma once

#include <QDesktopServices>
#include <QObject>
#include <QString>
#include <QUrl>

#include <vector>

class UrlHandler : public QObject
{
    Q_OBJECT

public:
    UrlHandler() { QDesktopServices::setUrlHandler(QStringLiteral("file"), this, "open"); }
    UrlHandler(UrlHandler const &) = delete;
    UrlHandler & operator=(UrlHandler const &) = delete;
    ~UrlHandler() override { QDesktopServices::unsetUrlHandler(QStringLiteral("file")); }

    std::vector<QUrl> urls;

public Q_SLOTS:
    void open(QUrl const & url) { urls.push_back(url); }
};
