// SPDX-License-Identifier: GPL-3.0-or-later
#include "data/ScriptFields.h"

#include "data/JsValues.h"
#include "model/VariantReading.h"

#include <QVector3D>
#include <QtNumeric>

namespace {

bool isNothing(const QVariant &value)
{
    return !value.isValid() || value.userType() == QMetaType::Nullptr;
}

} // namespace

ScriptFields::ScriptFields(const QVariant &fields)
    : m_fields(JsValues::plain(fields).toMap())
{}

QVariant ScriptFields::value(const QString &key) const
{
    return JsValues::plain(m_fields.value(key));
}

bool ScriptFields::take(const QString &key, double &field) const
{
    const auto given = value(key);
    bool isNumber = false;
    const double number = given.toDouble(&isNumber);
    if (isNothing(given) || !isNumber || !qIsFinite(number))
        return false;
    field = number;
    return true;
}

bool ScriptFields::take(const QString &key, int &field) const
{
    double number = 0.0;
    if (!take(key, number))
        return false;
    field = Model::intFrom(number);
    return true;
}

bool ScriptFields::take(const QString &key, unsigned int &field) const
{
    int number = 0;
    if (!take(key, number) || number < 0)
        return false;
    field = static_cast<unsigned int>(number);
    return true;
}

bool ScriptFields::take(const QString &key, bool &field) const
{
    const auto given = value(key);
    if (isNothing(given) || !given.canConvert<bool>())
        return false;
    field = given.toBool();
    return true;
}

bool ScriptFields::take(const QString &key, QString &field) const
{
    const auto given = value(key);
    if (isNothing(given) || !given.canConvert<QString>())
        return false;
    field = given.toString();
    return true;
}

bool ScriptFields::take(const QString &key, QUuid &field) const
{
    QString text;
    if (!take(key, text))
        return false;
    field = QUuid(text);
    return true;
}

bool ScriptFields::take(const QString &key, double &x, double &y, double &z) const
{
    const auto given = value(key);
    if (given.userType() != QMetaType::QVector3D)
        return false;
    const auto vector = given.value<QVector3D>();
    if (!qIsFinite(vector.x()) || !qIsFinite(vector.y()) || !qIsFinite(vector.z()))
        return false;
    x = static_cast<double>(vector.x());
    y = static_cast<double>(vector.y());
    z = static_cast<double>(vector.z());
    return true;
}
