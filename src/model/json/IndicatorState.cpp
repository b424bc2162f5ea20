// SPDX-License-Identifier: GPL-3.0-or-later
#include "model/json/IndicatorState.h"

#include "model/json/Numbers.h"

#include <boost/optional.hpp>

namespace JsonAPI {

namespace {

void setText(Entity &entity, const QString &key, const boost::optional<QString> &text)
{
    if (text)
        entity.setAttribute(key, *text);
}

// A key that is there overrides whatever it holds: a null empties the text.
boost::optional<QString> textOf(const QVariantMap &attributes, const QString &key)
{
    if (!attributes.contains(key))
        return boost::none;
    return attributes.value(key).toString();
}

} // namespace

QVariant IndicatorState::toVariant(const Model::IndicatorState &state)
{
    Entity entity("indicator_state", state.uid.toString());
    entity.setAttribute("opacity", state.opacity);
    setText(entity, "icon", state.icon);
    setText(entity, "icon_color", state.iconColor);
    setText(entity, "text", state.text);
    setText(entity, "text_color", state.textColor);
    return entity.toVariant();
}

Model::IndicatorState IndicatorState::fromVariant(const Entity &entity)
{
    const auto &attributes = entity.attributes;
    Model::IndicatorState state;
    state.uid = QUuid(entity.id);
    state.opacity = finiteNumber(attributes.value("opacity"), state.opacity);
    state.icon = textOf(attributes, "icon");
    state.iconColor = textOf(attributes, "icon_color");
    state.text = textOf(attributes, "text");
    state.textColor = textOf(attributes, "text_color");
    return state;
}

} // namespace JsonAPI
