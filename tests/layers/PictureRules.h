// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QDir>
#include <QString>
#include <QStringList>

// The rule that each screen has a picture in the gallery: every page that the navigator knows, and every page, screen,
// dialog, drawer and popup under qml/, is named there.
class PictureRules
{
public:
    explicit PictureRules(const QString &root);

    QStringList screens() const; // that must have a picture, by their types
    QStringList violations() const; // screens without one

private:
    QStringList pages() const; // of the navigator; with "" for one whose page is not to be read
    QString textOf(const QString &file) const;

    QDir m_root;
};
