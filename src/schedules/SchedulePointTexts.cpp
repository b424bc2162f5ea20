// SPDX-License-Identifier: GPL-3.0-or-later
#include "schedules/SchedulePointTexts.h"

#include "shell/ColorTheme.h"

#include <QStringList>

namespace {

using Type = Model::ActionDatatype::Type;
using EntityType = Model::ActionDatatype::EntityDatatype::EntityType;

QColor neutral()
{
    return QColor(QStringLiteral("#f0f0f0"));
}

QColor blue()
{
    return ColorTheme().blue();
}

// The field of the object, the fallback when the model has no such object, or its uid without a model.
QString nameIn(const UidKeyAbstractListModel *model, const QUuid &uid, const char *field, const QString &fallback,
               const QString &withoutModel)
{
    if (!model)
        return withoutModel.arg(uid.toString());
    const auto object = model->getByUid(uid.toString());
    return object.value(QString::fromLatin1(field), fallback).toString();
}

} // namespace

SchedulePointTexts::Info SchedulePointTexts::describe(const Model::ActionSequence &actions) const
{
    Info info{QString(), neutral()};
    QStringList texts;
    for (const auto &instance : actions.instances) {
        const auto action = extractWrapperInfo(instance, false, 0);
        texts << action.text;
        info.color = action.color;
    }
    const int count = texts.size();
    if (count >= 2)
        info.color = blue().darker(count * 10 + 100);
    info.text = texts.join(QStringLiteral("\n\n"));
    return info;
}

SchedulePointTexts::Info SchedulePointTexts::extractWrapperInfo(const Model::ActionBlueprintInstance &instance,
                                                                bool nested, int indent) const
{
    const auto blueprint = blueprints.constFind(instance.blueprint);
    if (blueprint == blueprints.constEnd())
        return {QString(), ColorTheme().grey().lighter(150)};

    const auto exposed = blueprint->getExposedProperties();
    Info info{QString(), exposed.size() <= 1 ? neutral() : blue()};
    QStringList lines{blueprint->name};
    for (const auto &parameter : exposed) {
        const auto id = parameter.globalID();
        const auto *given = instance.property(id);
        if (!given)
            continue;
        const auto *property = blueprint->property(id);
        QString text;
        if (parameter.value.type() == Type::Entity) {
            text = entityName(given->value);
            info.color = blue();
        } else {
            text = datatypeValueToString(given->value, property ? property->valueLimits : Model::ActionValueLimits());
            if (id == QLatin1String("power"))
                info.color = ColorTheme::brightnessToColor(static_cast<int>(
                    qBound<long long>(0, given->value.toInteger(), 100))); // beyond the ramp its ends stand
        }
        const auto label = property ? property->userDescription : QStringLiteral("Error");
        lines << QStringLiteral("%1 = %2").arg(label, text);
    }
    const QString step(4, ' ');
    for (auto &line : lines)
        line.prepend(step.repeated(indent));
    info.text = lines.join(nested ? QStringLiteral(" ") : '\n' + step.repeated(indent + 1));
    return info;
}

QString SchedulePointTexts::entityName(const Model::ActionDatatype &value) const
{
    const auto entity = value.toEntity();
    switch (entity.type) {
    case EntityType::Device:
        return nameIn(devices, entity.uid, "prettyString", tr("Отсутствующее устройство"), tr("Устройство: %1"));
    case EntityType::Button: return nameIn(buttons, entity.uid, "name", tr("Отсутствующая кнопка"), tr("Кнопка: %1"));
    case EntityType::Indicator:
        return nameIn(indicators, entity.uid, "label", tr("Отсутствующий индикатор"), tr("Индикатор: %1"));
    default: return entity.uid.toString();
    }
}

QString SchedulePointTexts::datatypeValueToString(const Model::ActionDatatype &value,
                                                  const Model::ActionValueLimits &limits)
{
    switch (value.type()) {
    case Type::Void: return tr("Не задано");
    case Type::Bool: return value.toBool() ? tr("Да") : tr("Нет");
    case Type::Entity: return value.toEntity().uid.toString();
    case Type::Enum: {
        const auto items = limits.toEnum().items;
        const auto index = value.toEnum().index;
        return index >= 0 && index < items.size() ? items.at(static_cast<int>(index))
                                                  : QStringLiteral("%1: Enum name error").arg(index);
    }
    case Type::List: {
        const auto element = limits.toList().toValueLimits();
        QStringList texts;
        for (const auto &item : value.toList())
            texts << datatypeValueToString(item, element);
        return '[' + texts.join(QStringLiteral(", ")) + ']';
    }
    default: return value.toString();
    }
}
