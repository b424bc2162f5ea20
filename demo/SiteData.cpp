// SPDX-License-Identifier: GPL-3.0-or-later
#include "demo/SiteData.h"

#include <algorithm>

namespace Demo {

namespace {

void overlay(QString &text, const QVariantMap &texts, const QString &key)
{
    const auto translated = texts.value(key).toString();
    if (!translated.isEmpty())
        text = translated;
}

template <typename Record>
void overlayEach(std::vector<Record> &records, const QVariantMap &texts)
{
    for (auto &record : records)
        overlay(record.description, texts, record.name);
}

} // namespace

const QVariantMap *overlayFor(const QMap<QString, QVariantMap> &translations, const QString &language)
{
    if (language == QLatin1String("ru"))
        return nullptr;
    auto found = translations.constFind(language);
    if (found == translations.constEnd())
        found = translations.constFind(QStringLiteral("en"));
    return found == translations.constEnd() ? nullptr : &found.value();
}

QString SiteDevice::title(const SiteDeviceType *type) const
{
    const auto name = descriptor.data.value("name").toString();
    if (!name.isEmpty() || !type)
        return name;
    return QStringLiteral("%1 %2").arg(type->info.name, QString::number(descriptor.address));
}

bool SiteDeviceType::hasPower() const
{
    return std::any_of(info.state.begin(), info.state.end(),
                       [](const auto &field) { return field.identificator == QLatin1String("power"); });
}

Model::ActionBlueprint SiteBlueprint::localized(const QString &language) const
{
    auto result = blueprint;
    const auto *texts = overlayFor(translations, language);
    if (!texts)
        return result;
    overlay(result.name, *texts, QStringLiteral("name"));
    const auto labels = texts->value(QStringLiteral("labels")).toMap();
    for (auto &node : result.nodes) {
        for (auto &property : node.properties) {
            if (property.exposed)
                overlay(property.userDescription, labels, property.globalName);
        }
    }
    return result;
}

QString SiteBlueprint::nodeTypePrefix()
{
    return QStringLiteral("nested_action/");
}

// What it exposes can be set on the node, or fed by a wire.
Model::NodeDescription SiteBlueprint::asNode(const QString &language) const
{
    const auto texts = localized(language);
    Model::NodeDescription node(nodeTypePrefix() + texts.uid.toString(), texts.name);
    node.category = language == QLatin1String("ru") ? QStringLiteral("Сценарии") : QStringLiteral("Blueprints");
    for (const auto &inner : texts.nodes) {
        for (const auto &property : inner.properties) {
            const auto &name = property.globalName;
            if (!property.exposed || name.isEmpty() || node.property(name))
                continue;
            node.properties.emplace_back(name, property.userDescription, property.value, property.valueLimits);
            Model::NodeIODescription input;
            input.name = name;
            input.description = property.userDescription;
            input.acceptedTypes = {property.value.type(), Model::ActionDatatype::Type::Void};
            input.linkedProperty = name;
            input.defaultValue = property.value;
            node.inputs.push_back(input);
        }
    }
    return node;
}

Model::NodeDescription SiteNode::localized(const QString &language) const
{
    auto result = description;
    const auto *texts = overlayFor(translations, language);
    if (!texts)
        return result;
    overlay(result.name, *texts, QStringLiteral("name"));
    overlay(result.description, *texts, QStringLiteral("description"));
    overlay(result.category, *texts, QStringLiteral("category"));
    overlayEach(result.inputs, texts->value(QStringLiteral("inputs")).toMap());
    overlayEach(result.outputs, texts->value(QStringLiteral("outputs")).toMap());
    overlayEach(result.properties, texts->value(QStringLiteral("properties")).toMap());
    const auto items = texts->value(QStringLiteral("items")).toMap();
    for (auto &property : result.properties) {
        const auto words = items.value(property.name).toStringList();
        if (property.valueLimits.type() == Model::ActionDatatype::Type::Enum
            && words.size() == property.valueLimits.toEnum().items.size())
            property.valueLimits = Model::ActionValueLimits::enumeration(words);
    }
    return result;
}

} // namespace Demo
