// SPDX-License-Identifier: BSD-3-Clause
// An application without a desktop, as long as a test needs one.
#pragma once

#include <QCoreApplication>

class CoreApplication
{
public:
    CoreApplication() : m_application(m_count, m_arguments) {}
    CoreApplication(CoreApplication const &) = delete;
    CoreApplication & operator=(CoreApplication const &) = delete;

private:
    int m_count = 1;
    char m_name[5] = "test";
    char * m_arguments[2] = {m_name, nullptr};
    QCoreApplication m_application;
};
