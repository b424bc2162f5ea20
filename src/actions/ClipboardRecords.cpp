// SPDX-License-Identifier: GPL-3.0-or-later
#include "actions/ClipboardRecords.h"

#include "shell/Version.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QJsonDocument>
#include <QJsonObject>

namespace {

constexpr int largestText = 16 * 1024 * 1024; // characters

} // namespace

void ClipboardRecords::put(QVariantMap record, QLatin1String marker)
{
    record.insert(QStringLiteral("meta_info"), QStringLiteral("%1, version %2").arg(marker, Version::text()));
    const auto json = QJsonDocument(QJsonObject::fromVariantMap(record)).toJson(QJsonDocument::Indented);
    QGuiApplication::clipboard()->setText(QString::fromUtf8(json));
}

boost::optional<QVariantMap> ClipboardRecords::take(QLatin1String marker)
{
    const QString text = QGuiApplication::clipboard()->text();
    if (text.size() > largestText || !text.contains(marker))
        return boost::none;
    return QJsonDocument::fromJson(text.toUtf8()).object().toVariantMap();
}
