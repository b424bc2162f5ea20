// SPDX-License-Identifier: GPL-3.0-or-later
#include "shell/AppSettingsProxy.h"

#include <QJSValue>
#include <QStandardPaths>
#include <QStringList>
#include <QXmlStreamWriter>

namespace {

QString filePath(const QString &fileName, const QString &folder)
{
    return QStandardPaths::writableLocation(QStandardPaths::AppDataLocation) + '/' + folder + '/' + fileName;
}

QVariant plain(const QVariant &value)
{
    return value.userType() == qMetaTypeId<QJSValue>() ? value.value<QJSValue>().toVariant() : value;
}

QString withoutLineFeeds(const QVariant &value)
{
    return value.toString().replace('\n', QStringLiteral("<br>"));
}

QString quoted(const QString &text)
{
    return '"' + text + '"';
}

} // namespace

AppSettingsProxy::AppSettingsProxy(const QString &fileName, const QString &folder, QObject *parent)
    : QObject(parent)
    , m_settings(filePath(fileName, folder), QSettings::IniFormat)
{
    m_settings.setIniCodec("UTF-8");
}

void AppSettingsProxy::setValue(const QString &key, const QVariant &value)
{
    if (!key.isEmpty())
        m_settings.setValue(key, plain(value));
}

QVariant AppSettingsProxy::getValue(const QString &key, const QVariant &fallback) const
{
    return key.isEmpty() ? fallback : m_settings.value(key, fallback);
}

void AppSettingsProxy::appendToArray(const QString &key, const QVariantMap &values)
{
    if (key.isEmpty())
        return;
    auto rows = readRows(key);
    rows << values;
    writeRows(key, rows);
}

void AppSettingsProxy::removeArray(const QString &key)
{
    if (!key.isEmpty()) // an empty key would remove everything
        m_settings.remove(key);
}

void AppSettingsProxy::removeArrayEntry(const QString &key, int index)
{
    auto rows = readRows(key);
    if (index < 0 || index >= rows.size())
        return;
    rows.removeAt(index);
    writeRows(key, rows);
}

QVariantList AppSettingsProxy::getArray(const QString &key) const
{
    QVariantList list;
    for (auto row : readRows(key)) {
        for (auto &value : row)
            value = value.toString();
        list << row;
    }
    return list;
}

QVariantList AppSettingsProxy::getVariantArray(const QString &key) const
{
    QVariantList list;
    for (const auto &row : readRows(key))
        list << row;
    return list;
}

// Scripts know this text as it is: it is no JSON.
QString AppSettingsProxy::getArrayJson(const QString &key) const
{
    QStringList rows;
    for (const auto &row : readRows(key)) {
        QString pairs;
        for (auto value = row.begin(); value != row.end(); ++value)
            pairs +=
                quoted(value.key()) + QStringLiteral(" : ") + quoted(withoutLineFeeds(*value)) + QStringLiteral(", ");
        rows << pairs;
    }
    return QStringLiteral("[ { ") + rows.join(QStringLiteral("},{")) + QStringLiteral(" ]");
}

QString AppSettingsProxy::getArrayXml(const QString &key) const
{
    QString text;
    QXmlStreamWriter writer(&text);
    writer.writeStartElement(QStringLiteral("xml"));
    for (const auto &row : readRows(key)) {
        writer.writeStartElement(QStringLiteral("item"));
        for (auto value = row.begin(); value != row.end(); ++value)
            writer.writeTextElement(value.key(), withoutLineFeeds(*value));
        writer.writeEndElement();
    }
    writer.writeEndElement();
    return text;
}

bool AppSettingsProxy::checkValueArray(const QString &key, const QString &arrayKey, const QVariant &value) const
{
    return getIndexOfValueInArray(key, arrayKey, value) >= 0;
}

int AppSettingsProxy::getIndexOfValueInArray(const QString &key, const QString &arrayKey, const QVariant &value) const
{
    const auto rows = readRows(key);
    const auto wanted = plain(value).toString();
    for (int i = 0; i < rows.size(); ++i) {
        const auto found = rows.at(i).constFind(arrayKey);
        if (found != rows.at(i).constEnd() && found->toString() == wanted)
            return i;
    }
    return -1;
}

double AppSettingsProxy::getTimeZone() const
{
    return QDateTime::currentDateTime().offsetFromUtc() / 3600.0;
}

QDateTime AppSettingsProxy::stringToDate(const QString &text) const
{
    return QDateTime::fromString(text, QStringLiteral("yyyy-MM-ddThh:mm:ss"));
}

QList<QVariantMap> AppSettingsProxy::readRows(const QString &key) const
{
    QList<QVariantMap> rows;
    if (key.isEmpty())
        return rows;
    const int size = m_settings.beginReadArray(key);
    for (int i = 0; i < size; ++i) {
        m_settings.setArrayIndex(i);
        QVariantMap row;
        const auto columns = m_settings.allKeys();
        if (columns.isEmpty())
            break; // the size is only a number in a file: what it claims need not be there
        for (const auto &column : columns)
            row.insert(column, m_settings.value(column));
        rows << row;
    }
    m_settings.endArray();
    return rows;
}

void AppSettingsProxy::writeRows(const QString &key, const QList<QVariantMap> &rows)
{
    m_settings.remove(key);
    m_settings.beginWriteArray(key, rows.size());
    for (int i = 0; i < rows.size(); ++i) {
        m_settings.setArrayIndex(i);
        for (auto value = rows.at(i).begin(); value != rows.at(i).end(); ++value) {
            if (!value.key().isEmpty())
                m_settings.setValue(value.key(), plain(*value));
        }
    }
    m_settings.endArray();
}
