// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "link/document/Entity.h"
#include "model/Statistics.h"

#include <QVariant>

namespace JsonAPI {

// Figures of the server's store as the entity "statistics_info".
class StatisticsInfo
{
public:
    static QVariant toVariant(const Model::StatisticsInfo &info);
    static Model::StatisticsInfo fromVariant(const Entity &entity);
};

} // namespace JsonAPI
