// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "link/document/Entity.h"
#include "model/Statistics.h"

#include <QDateTime>
#include <QHash>
#include <QStringList>
#include <QUrlQuery>
#include <QUuid>
#include <QVariant>

namespace JsonAPI {

// Time series as the entity "statistics": a row is an array of its time and its values.
class Statistics
{
public:
    // Which series of which devices or zones are asked for, as the query of a request.
    struct Filter
    {
        QDateTime from; // left out of the query when invalid
        QDateTime to;
        QHash<QUuid, QStringList> entities; // types of series by device or zone

        void addEntity(const QUuid &uid, const QString &type);
        QUrlQuery toQuery() const;
        static Filter fromQuery(const QUrlQuery &query);
    };

    static QVariant toVariant(const Model::Statistics &statistics);
    static Model::Statistics fromVariant(const Entity &entity);
};

} // namespace JsonAPI
