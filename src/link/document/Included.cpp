// SPDX-License-Identifier: GPL-3.0-or-later
#include "link/document/Included.h"

#include <QVariantMap>

namespace JsonAPI {

Included::Included(const QVariant &variant)
    : m_entities(variant.type() == QVariant::Map ? variant.toMap().value("included").toList() : variant.toList())
{}

} // namespace JsonAPI
