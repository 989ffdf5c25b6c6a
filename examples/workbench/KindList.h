// SPDX-License-Identifier: BSD-3-Clause
// The kinds of file that the library knows.
#pragma once

#include <ZyFileType.h>

#include <QListWidget>

/** A list of all kinds with their icons. */
class KindList : public QListWidget
{
    Q_OBJECT

public:
    explicit KindList(QWidget * parent = nullptr);

Q_SIGNALS:
    /** The user has chosen a kind. */
    void chosen(ZyFileType::Type type);
};
