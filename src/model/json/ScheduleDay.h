// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "link/document/Entity.h"
#include "model/Schedule.h"

#include <QVariant>

namespace JsonAPI {

// A schedule as the entity "schedule_day", id the uid. Its zones are relations.
class ScheduleDay
{
public:
    static QVariant toVariant(const Model::ScheduleDay &day);
    static Model::ScheduleDay fromVariant(const Entity &entity);
};

} // namespace JsonAPI
