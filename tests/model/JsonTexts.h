// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "link/document/Entity.h"

#include <QByteArray>
#include <QJsonDocument>
#include <QVariant>
#include <QtGlobal>

// Documents written by hand, for tests of records.
namespace JsonTexts {

// What the link hands over for that text.
inline QVariant read(const QByteArray &text)
{
    const auto document = QJsonDocument::fromJson(text);
    if (document.isNull())
        qFatal("The test holds a text that is no document: %s", text.constData());
    return document.toVariant();
}

// What goes on the wire for that variant, keys sorted, without spaces.
inline QByteArray written(const QVariant &variant)
{
    return QJsonDocument::fromVariant(variant).toJson(QJsonDocument::Compact);
}

// A text written by hand in the form of written().
inline QByteArray compact(const QByteArray &text)
{
    return written(read(text));
}

inline JsonAPI::Entity entity(const QByteArray &text)
{
    return JsonAPI::Entity(read(text));
}

} // namespace JsonTexts
