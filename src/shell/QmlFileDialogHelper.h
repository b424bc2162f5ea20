// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QObject>
#include <QStringList>

// What the file dialog in QML cannot ask by itself.
class QmlFileDialogHelper : public QObject
{
    Q_OBJECT

public:
    explicit QmlFileDialogHelper(QObject *parent = nullptr);

    Q_INVOKABLE QStringList getDrives() const; // their roots
};
