// SPDX-License-Identifier: BSD-3-Clause
// Uses something of every library of the prefix.
#include <QDir>
#include <QDomDocument>
#include <QGuiApplication>
#include <QIcon>
#include <QNetworkRequest>

#include <future>

#include <minizip/zip.h>
#include <zlib.h>

int main(int argc, char ** argv)
{
    QGuiApplication const application(argc, argv);
    QDomDocument document;
    bool isGood = document.setContent(QByteArray("<a b='1'/>"));
    isGood = isGood && document.documentElement().attribute("b") == "1";
    isGood = isGood && QDir("C:/work").absoluteFilePath("D:/x") == "D:/x";
    isGood = isGood && QIcon("none.png").availableSizes().isEmpty() && QNetworkRequest().url().isEmpty();
    isGood = isGood && std::async(std::launch::async, [] { return QString("x").repeated(3); }).get() == "xxx";
    isGood = isGood && zlibVersion()[0] == '1' && zipOpen("Z:\\no\\such\\folder\\x.zip", 0) == nullptr;
    return isGood ? 0 : 1;
}
