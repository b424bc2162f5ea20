// SPDX-License-Identifier: GPL-3.0-or-later
#include "data/QmlStringSet.h"

QmlStringSet::QmlStringSet(QObject *parent)
    : QObject(parent)
{}

void QmlStringSet::insert(const QString &value)
{
    if (m_values.contains(value))
        return;
    m_values.insert(value);
    emit valuesChanged();
}

bool QmlStringSet::remove(const QString &value)
{
    if (!m_values.remove(value))
        return false;
    emit valuesChanged();
    return true;
}

void QmlStringSet::clear()
{
    m_values.clear();
    emit valuesChanged();
}
