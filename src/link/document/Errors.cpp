// SPDX-License-Identifier: GPL-3.0-or-later
#include "link/document/Errors.h"

#include <QVariantMap>

namespace JsonAPI {

Errors::Errors(const QVariant &list)
{
    const auto errors = list.toList();
    m_errors.reserve(static_cast<size_t>(errors.size()));
    for (const auto &error : errors) {
        const auto map = error.toMap();
        add(map.value("code").toString(), map.value("title").toString(), map.value("detail").toString());
    }
}

void Errors::add(const QString &code, const QString &title, const QString &detail)
{
    m_errors.push_back({code, title, detail});
}

QVariantList Errors::toVariant() const
{
    QVariantList list;
    for (const auto &error : m_errors)
        list << QVariantMap{{"code", error.code}, {"title", error.title}, {"detail", error.detail}};
    return list;
}

} // namespace JsonAPI
