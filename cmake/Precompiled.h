// SPDX-License-Identifier: GPL-3.0-or-later
// The everyday headers of the standard library and Qt. Sources include what they use all the same.
#pragma once

#include <QAbstractListModel>
#include <QByteArray>
#include <QDateTime>
#include <QHash>
#include <QJsonDocument>
#include <QLoggingCategory>
#include <QObject>
#include <QSet>
#include <QString>
#include <QStringList>
#include <QTimer>
#include <QUrl>
#include <QUuid>
#include <QVariant>
#include <QVector>
#include <functional>
#include <memory>
#include <vector>
