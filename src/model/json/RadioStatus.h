// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "link/document/Entity.h"
#include "model/RadioStatus.h"

#include <QVariant>

namespace JsonAPI {

// How a transport is doing, as the entity "radio_status", id made of its kind and index.
class RadioStatus
{
public:
    static QVariant toVariant(const Model::RadioStatus &status);
    static Model::RadioStatus fromVariant(const Entity &entity);
};

} // namespace JsonAPI
