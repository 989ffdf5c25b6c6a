// SPDX-License-Identifier: BSD-3-Clause
// The application of the tests.

#include <QApplication>
#include <QStandardPaths>
#include <QTextCodec>

#include <gtest/gtest.h>

int main(int argc, char ** argv)
{
    QTextCodec::setCodecForLocale(QTextCodec::codecForName("UTF-8"));
    QCoreApplication::setAttribute(Qt::AA_DontUseNativeDialogs);
    QStandardPaths::setTestModeEnabled(true);
    QApplication const application(argc, argv);
    testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}
