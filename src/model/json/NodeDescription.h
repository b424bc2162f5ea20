// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "link/document/Entity.h"
#include "model/NodeDescription.h"

#include <QVariant>

namespace JsonAPI {

// A type of node as the entity "node_description", whose id is the type.
class NodeDescription
{
public:
    static QVariant toVariant(const Model::NodeDescription &description);
    static Model::NodeDescription fromVariant(const Entity &entity);
};

} // namespace JsonAPI
