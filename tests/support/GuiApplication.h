// SPDX-License-Identifier: BSD-3-Clause
// An application with a desktop that nobody sees, as long as a test needs one.
#pragma once

#include <QByteArray>
#include <QGuiApplication>
#include <QtGlobal>

class GuiApplication
{
public:
    GuiApplication() : m_application(m_count, m_arguments) {}
    GuiApplication(GuiApplication const &) = delete;
    GuiApplication & operator=(GuiApplication const &) = delete;

private:
    bool m_isChosen = qputenv("QT_QPA_PLATFORM", "offscreen"); // before the application reads it
    int m_count = 1;
    char m_name[5] = "test";
    char * m_arguments[2] = {m_name, nullptr};
    QGuiApplication m_application;
};
