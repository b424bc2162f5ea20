// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "link/document/Entity.h"
#include "model/Site.h"

#include <QVariant>

namespace JsonAPI {

// A zone as an entity "zone", id the uid.
class Zone
{
public:
    static QVariant toVariant(const Model::Zone &zone);
    static Model::Zone fromVariant(const Entity &entity);
};

} // namespace JsonAPI
