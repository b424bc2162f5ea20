// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "link/document/Entity.h"
#include "link/document/ZmqBinaryMessage.h"
#include "model/PlanObjects.h"

#include <QVariant>

namespace JsonAPI {

// A mesh in the three-dimensional view as the entity "view_3d_item", id the uid. The mesh file travels in the binary
// form only, whose numbers keep six significant digits.
class View3DItem
{
public:
    static QVariant toVariant(const Model::View3DItem &item);
    static Model::View3DItem fromVariant(const Entity &entity);

    static void toBinaryMessage(ZmqBinaryMessage &message, const Model::View3DItem &item); // appends its entries
    static Model::View3DItem fromBinaryMessage(const ZmqBinaryMessage &message);
    // Attributes that are bytes. A default record for an entity that is not of type "binary_wrapper".
    static Model::View3DItem fromBinaryWrapper(const Entity &entity);
};

} // namespace JsonAPI
