// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "link/document/Response.h"

#include <QDataStream>

// A reply to the last bit: also the types of its values, and whether a text is empty or null.
inline QByteArray exactBytes(const JsonAPI::Response &response)
{
    QByteArray bytes;
    QDataStream stream(&bytes, QIODevice::WriteOnly);
    stream << response.single << response.serverVersion << response.errors.toVariant() << response.included.toVariant();
    for (const auto &entity : response.data)
        stream << entity.type << entity.id << entity.attributes << entity.relationships.toVariant();
    return bytes;
}
