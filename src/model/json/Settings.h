// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "link/document/Entity.h"
#include "model/Settings.h"

#include <QVariant>

namespace JsonAPI {

// The hardware configuration as the entity "settings", id "1".
class Settings
{
public:
    static QVariant toVariant(const Model::Settings &settings);
    static Model::Settings fromVariant(const Entity &entity);
};

} // namespace JsonAPI
