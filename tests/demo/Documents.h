// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>
#include <initializer_list>

// Pieces of request documents.
namespace SiteFixture {

inline QByteArray quoted(const QByteArray &text)
{
    return "\"" + text + "\"";
}

inline QByteArray entity(const QByteArray &type, const QByteArray &id, const QByteArray &attributes = "{}")
{
    return R"({"type": ")" + type + R"(", "id": ")" + id + R"(", "attributes": )" + attributes + "}";
}

inline QByteArray listOf(std::initializer_list<QByteArray> elements)
{
    QByteArray list;
    for (const auto &element : elements)
        list += (list.isEmpty() ? "" : ", ") + element;
    return "[" + list + "]";
}

// A blueprint that sets a power, as a sequence holds it.
inline QByteArray powerStep(const QByteArray &zones, const QByteArray &power)
{
    return R"({"blueprint": "{00000ec0-0002-0000-0000-000000000002}", "zones": )" + zones
        + R"(, "properties": [{"node": "", "property": "power", "value": {"type": "integer", "value": )" + power
        + "}}]}";
}

} // namespace SiteFixture
