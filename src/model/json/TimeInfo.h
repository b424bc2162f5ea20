// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "link/document/Entity.h"
#include "model/TimeInfo.h"

#include <QVariant>

namespace JsonAPI {

// The server's clock as an entity "time_info", id the milliseconds since the epoch in decimal.
class TimeInfo
{
public:
    static QVariant toVariant(const Model::TimeInfo &info);
    static Model::TimeInfo fromVariant(const Entity &entity);
};

} // namespace JsonAPI
