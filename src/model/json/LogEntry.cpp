// SPDX-License-Identifier: GPL-3.0-or-later
#include "model/json/LogEntry.h"

#include "model/json/IsoTime.h"

namespace JsonAPI {

QVariant LogEntry::toVariant(const Model::LogEntry &entry)
{
    Entity entity("log_entry", QString::number(entry.time.isValid() ? entry.time.toMSecsSinceEpoch() : 0));
    entity.setAttribute("time", entry.time.toString(Qt::ISODate));
    entity.setAttribute("cause", Model::LogEntry::causeToString(entry.cause));
    entity.setAttribute("username", entry.username);
    entity.setAttribute("action", entry.action);
    return entity.toVariant();
}

Model::LogEntry LogEntry::fromVariant(const Entity &entity)
{
    const auto &attributes = entity.attributes;
    Model::LogEntry entry;
    entry.time = isoTime(attributes.value("time"));
    entry.cause = Model::LogEntry::causeFromString(attributes.value("cause").toString());
    entry.username = attributes.value("username").toString();
    entry.action = attributes.value("action").toString();
    return entry;
}

} // namespace JsonAPI
