// SPDX-License-Identifier: GPL-3.0-or-later
#include "model/ActionDatatype.h"

#include "model/VariantReading.h"

#include <QHash>
#include <QJSValue>
#include <QStringList>
#include <QVariantList>
#include <QVariantMap>
#include <utility>

namespace Model {

namespace {

using Type = ActionDatatype::Type;
using EntityDatatype = ActionDatatype::EntityDatatype;
using EntityType = EntityDatatype::EntityType;
using EnumDatatype = ActionDatatype::EnumDatatype;

const QHash<QString, Type> &typeWords()
{
    static const QHash<QString, Type> words{
        {"void", Type::Void},     {"integer", Type::Integer}, {"double", Type::Double}, {"bool", Type::Bool},
        {"string", Type::String}, {"list", Type::List},       {"entity", Type::Entity}, {"enum", Type::Enum},
    };
    return words;
}

const QHash<QString, EntityType> &entityTypeWords()
{
    static const QHash<QString, EntityType> words{
        {"device", EntityType::Device}, {"zone", EntityType::Zone},           {"button", EntityType::Button},
        {"part", EntityType::Part},     {"indicator", EntityType::Indicator}, {"unknown", EntityType::Unknown},
    };
    return words;
}

} // namespace

ActionDatatype::EntityDatatype::EntityDatatype(const QUuid &uid)
    : uid(uid)
{}

ActionDatatype::EntityDatatype::EntityDatatype(EntityType type, const QUuid &uid)
    : type(type)
    , uid(uid)
{}

QString ActionDatatype::EntityDatatype::typeToString(EntityType type)
{
    return entityTypeWords().key(type);
}

ActionDatatype::EntityDatatype::EntityType ActionDatatype::EntityDatatype::typeFromString(const QString &text)
{
    return entityTypeWords().value(text, EntityType::Device);
}

ActionDatatype::ActionDatatype(long long value)
    : m_type(Type::Integer)
    , m_value(value)
{}

ActionDatatype::ActionDatatype(double value)
    : m_type(Type::Double)
    , m_value(value)
{}

ActionDatatype::ActionDatatype(bool value)
    : m_type(Type::Bool)
    , m_value(value)
{}

ActionDatatype::ActionDatatype(const QString &value)
    : m_type(Type::String)
    , m_value(value)
{}

ActionDatatype::ActionDatatype(const List &value)
    : m_type(Type::List)
    , m_value(value)
{}

ActionDatatype::ActionDatatype(const EntityDatatype &value)
    : m_type(Type::Entity)
    , m_value(value)
{}

ActionDatatype::ActionDatatype(const EnumDatatype &value)
    : m_type(Type::Enum)
    , m_value(value)
{}

ActionDatatype::ActionDatatype(const QVariant &value)
    : ActionDatatype(readVariant(value, 0))
{}

ActionDatatype ActionDatatype::device(const QUuid &uid)
{
    return EntityDatatype(EntityType::Device, uid);
}

ActionDatatype ActionDatatype::zone(const QUuid &uid)
{
    return EntityDatatype(EntityType::Zone, uid);
}

ActionDatatype ActionDatatype::button(const QUuid &uid)
{
    return EntityDatatype(EntityType::Button, uid);
}

ActionDatatype ActionDatatype::part(const QUuid &uid)
{
    return EntityDatatype(EntityType::Part, uid);
}

ActionDatatype ActionDatatype::indicator(const QUuid &uid)
{
    return EntityDatatype(EntityType::Indicator, uid);
}

QString ActionDatatype::typeToString(Type type)
{
    return typeWords().key(type);
}

ActionDatatype::Type ActionDatatype::typeFromString(const QString &text)
{
    return typeWords().value(text, Type::Void);
}

long long ActionDatatype::toInteger() const
{
    switch (m_type) {
    case Type::Integer: return boost::get<long long>(m_value);
    case Type::Double: return saturated(boost::get<double>(m_value));
    case Type::Bool: return boost::get<bool>(m_value) ? 1 : 0;
    case Type::Enum: return boost::get<EnumDatatype>(m_value).index;
    case Type::Void:
    case Type::String:
    case Type::List:
    case Type::Entity: break;
    }
    return 0;
}

double ActionDatatype::toDouble() const
{
    switch (m_type) {
    case Type::Double: return boost::get<double>(m_value);
    case Type::Integer:
    case Type::Bool:
    case Type::Enum: return static_cast<double>(toInteger());
    case Type::Void:
    case Type::String:
    case Type::List:
    case Type::Entity: break;
    }
    return 0.0;
}

bool ActionDatatype::toBool() const
{
    switch (m_type) {
    case Type::Void: return false;
    case Type::Integer: return boost::get<long long>(m_value) != 0;
    case Type::Double: return boost::get<double>(m_value) != 0.0;
    case Type::Bool: return boost::get<bool>(m_value);
    case Type::String: return !boost::get<QString>(m_value).isEmpty();
    case Type::List: return !boost::get<List>(m_value).empty();
    case Type::Entity: return !boost::get<EntityDatatype>(m_value).uid.isNull();
    case Type::Enum: return boost::get<EnumDatatype>(m_value).index != 0;
    }
    return false;
}

QString ActionDatatype::toString() const
{
    switch (m_type) {
    case Type::Void: return {};
    case Type::Integer:
    case Type::Enum: return QString::number(toInteger());
    case Type::Double: return QString::number(boost::get<double>(m_value), 'g', 6);
    case Type::Bool: return boost::get<bool>(m_value) ? QStringLiteral("True") : QStringLiteral("False");
    case Type::String: return boost::get<QString>(m_value);
    case Type::List: {
        QStringList texts;
        for (const auto &element : boost::get<List>(m_value))
            texts.append(element.toString());
        return '[' + texts.join(QStringLiteral(", ")) + ']';
    }
    case Type::Entity: {
        const auto &entity = boost::get<EntityDatatype>(m_value);
        return EntityDatatype::typeToString(entity.type) + QStringLiteral(": ") + entity.uid.toString();
    }
    }
    return {};
}

ActionDatatype::List ActionDatatype::toList() const
{
    if (m_type == Type::List)
        return boost::get<List>(m_value);
    if (m_type == Type::Void)
        return {};
    return {*this};
}

ActionDatatype::EntityDatatype ActionDatatype::toEntity() const
{
    if (m_type == Type::Entity)
        return boost::get<EntityDatatype>(m_value);
    // A text is a uid with an optional tail after a colon. toString() of an entity puts its type first, so that form
    // gives a null uid here.
    if (m_type == Type::String)
        return QUuid(boost::get<QString>(m_value).section(':', 0, 0));
    return {};
}

ActionDatatype::EnumDatatype ActionDatatype::toEnum() const
{
    if (m_type == Type::Integer || m_type == Type::Enum)
        return {toInteger()};
    return {};
}

ActionDatatype::Union ActionDatatype::toType(Type type) const
{
    switch (type) {
    case Type::Void: return 0LL;
    case Type::Integer: return toInteger();
    case Type::Double: return toDouble();
    case Type::Bool: return toBool();
    case Type::String: return toString();
    case Type::List: return toList();
    case Type::Entity: return toEntity();
    case Type::Enum: return toEnum();
    }
    return 0LL;
}

void ActionDatatype::setValue(const ActionDatatype &other)
{
    if (m_type == Type::Void) {
        *this = ActionDatatype(other); // by a copy: other may be an element of this
        return;
    }
    if (m_type != Type::Entity) {
        m_value = other.toType(m_type);
        return;
    }
    auto entity = toEntity();
    const auto otherEntity = other.toEntity();
    const bool differ = entity.type != EntityType::Unknown && otherEntity.type != EntityType::Unknown
        && entity.type != otherEntity.type;
    if (!differ)
        entity.uid = otherEntity.uid;
    if (entity.type == EntityType::Unknown)
        entity.type = otherEntity.type;
    m_value = entity;
}

QVariant ActionDatatype::valueToVariant() const
{
    switch (m_type) {
    case Type::Void: return {};
    case Type::Integer:
    case Type::Enum: return QVariant(toInteger());
    case Type::Double: return boost::get<double>(m_value);
    case Type::Bool: return boost::get<bool>(m_value);
    case Type::String: return boost::get<QString>(m_value);
    case Type::List: {
        QVariantList list;
        for (const auto &element : boost::get<List>(m_value))
            list.append(element.valueToVariant());
        return list;
    }
    case Type::Entity: return boost::get<EntityDatatype>(m_value).uid.toString();
    }
    return {};
}

QVariant ActionDatatype::toVariantMap() const
{
    if (m_type == Type::Void)
        return {};
    QVariant value;
    switch (m_type) {
    case Type::Void:
    case Type::Integer:
    case Type::Double:
    case Type::Bool:
    case Type::String: value = valueToVariant(); break;
    case Type::List: {
        QVariantList list;
        for (const auto &element : boost::get<List>(m_value))
            list.append(element.toVariantMap());
        value = list;
        break;
    }
    case Type::Entity: {
        const auto &entity = boost::get<EntityDatatype>(m_value);
        value = QVariantMap{{"type", EntityDatatype::typeToString(entity.type)}, {"uid", entity.uid.toString()}};
        break;
    }
    case Type::Enum: value = QVariantMap{{"index", toInteger()}}; break;
    }
    return QVariantMap{{"type", typeToString(m_type)}, {"value", value}};
}

ActionDatatype ActionDatatype::fromVariantMap(const QVariant &map)
{
    return readMap(map, 0);
}

ActionDatatype ActionDatatype::readMap(const QVariant &variant, int depth)
{
    const auto map = variant.toMap();
    const auto value = map.value("value");
    switch (typeFromString(map.value("type").toString())) {
    case Type::Void: break;
    case Type::Integer: return integerFrom(value);
    case Type::Double: return value.toDouble();
    case Type::Bool: return value.toBool();
    case Type::String: return value.toString();
    case Type::List: return readList(value.toList(), depth, readMap);
    case Type::Entity: {
        const auto entity = value.toMap();
        return EntityDatatype(EntityDatatype::typeFromString(entity.value("type").toString()),
                              entity.value("uid").toUuid());
    }
    case Type::Enum: return EnumDatatype{integerFrom(value.toMap().value("index"))};
    }
    return {};
}

ActionDatatype ActionDatatype::readVariant(const QVariant &variant, int depth)
{
    const int type = variant.userType();
    switch (type) {
    case QMetaType::Bool: return variant.toBool();
    case QMetaType::Int:
    case QMetaType::UInt:
    case QMetaType::LongLong:
    case QMetaType::ULongLong: return variant.toLongLong();
    case QMetaType::Double:
    case QMetaType::Float: return variant.toDouble();
    case QMetaType::QString:
    case QMetaType::QChar: return variant.toString();
    case QMetaType::QVariantMap: return readMap(variant, depth);
    case QMetaType::QVariantList: return readList(variant.toList(), depth, readVariant);
    case QMetaType::QUuid: return EntityDatatype(variant.toUuid());
    }
    if (type < QMetaType::User || !variant.canConvert<QJSValue>())
        return {};
    // What a script value turns into may be a type of ours again, whose way into a script leads back here.
    return depth < maxDepth ? readVariant(variant.value<QJSValue>().toVariant(), depth + 1) : ActionDatatype();
}

ActionDatatype ActionDatatype::readList(const QVariantList &list, int depth, Reader reader)
{
    ActionDatatype value{List()};
    if (depth >= maxDepth)
        return value;
    List elements;
    elements.reserve(static_cast<std::size_t>(list.size()));
    for (const auto &element : list)
        elements.push_back(reader(element, depth + 1));
    value.m_value = std::move(elements);
    return value;
}

bool operator==(const ActionDatatype &left, const ActionDatatype &right)
{
    return left.m_type == right.m_type && left.m_value == right.m_value;
}

bool operator==(const ActionDatatype::EntityDatatype &left, const ActionDatatype::EntityDatatype &right)
{
    return left.type == right.type && left.uid == right.uid;
}

bool operator==(const ActionDatatype::EnumDatatype &left, const ActionDatatype::EnumDatatype &right)
{
    return left.index == right.index;
}

} // namespace Model
