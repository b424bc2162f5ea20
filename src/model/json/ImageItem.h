// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "link/document/Entity.h"
#include "model/PlanObjects.h"

#include <QVariant>

namespace JsonAPI {

// A picture on a plan as the entity "image_item", id the uid. The picture itself travels in binary messages.
class ImageItem
{
public:
    static QVariant toVariant(const Model::ImageItem &item);
    static Model::ImageItem fromVariant(const Entity &entity);
};

} // namespace JsonAPI
