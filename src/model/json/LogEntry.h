// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "link/document/Entity.h"
#include "model/Statistics.h"

#include <QVariant>

namespace JsonAPI {

// A line of the journal as the entity "log_entry", id the milliseconds since the epoch in decimal.
class LogEntry
{
public:
    static QVariant toVariant(const Model::LogEntry &entry);
    static Model::LogEntry fromVariant(const Entity &entity);
};

} // namespace JsonAPI
