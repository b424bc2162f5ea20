// SPDX-License-Identifier: GPL-3.0-or-later
#include "model/ActionValueLimits.h"

#include "model/VariantReading.h"

#include <QVariantMap>
#include <algorithm>

namespace Model {

namespace {

// The record of that kind which the union holds, or the default of the kind.
template <typename Record, typename Union>
Record heldOrDefault(const Union &limits)
{
    const auto *record = boost::get<Record>(&limits);
    return record ? *record : Record();
}

template <typename Range>
Range narrowed(const Range &own, const Range &other)
{
    return {std::max(own.min, other.min), std::min(own.max, other.max)};
}

} // namespace

ActionValueLimits::ListLimits::ListLimits(const ActionValueLimits &element, int minLength, int maxLength)
    : listType(element.m_type)
    , minLength(minLength)
    , maxLength(maxLength)
{
    if (const auto *integers = boost::get<IntegerLimits>(&element.m_limits))
        elementLimits = *integers;
    else if (const auto *doubles = boost::get<DoubleLimits>(&element.m_limits))
        elementLimits = *doubles;
    else if (const auto *strings = boost::get<StringLimits>(&element.m_limits))
        elementLimits = *strings;
    else if (const auto *entities = boost::get<EntityLimits>(&element.m_limits))
        elementLimits = *entities;
}

ActionValueLimits::ListLimits ActionValueLimits::ListLimits::fromValueLimits(const ActionValueLimits &limits)
{
    return {limits, 0, maxLengthDefault};
}

ActionValueLimits ActionValueLimits::ListLimits::toValueLimits() const
{
    switch (listType) {
    case Type::Integer: return heldOrDefault<IntegerLimits>(elementLimits);
    case Type::Double: return heldOrDefault<DoubleLimits>(elementLimits);
    case Type::String: return heldOrDefault<StringLimits>(elementLimits);
    case Type::Entity: return heldOrDefault<EntityLimits>(elementLimits);
    case Type::Void:
    case Type::Bool:
    case Type::List:
    case Type::Enum: break;
    }
    return ActionValueLimits(listType);
}

ActionValueLimits::ActionValueLimits(Type type)
    : m_type(type)
{}

ActionValueLimits::ActionValueLimits(const IntegerLimits &limits)
    : m_type(Type::Integer)
    , m_limits(limits)
{}

ActionValueLimits::ActionValueLimits(const DoubleLimits &limits)
    : m_type(Type::Double)
    , m_limits(limits)
{}

ActionValueLimits::ActionValueLimits(const EntityLimits &limits)
    : m_type(Type::Entity)
    , m_limits(limits)
{}

ActionValueLimits::ActionValueLimits(const ListLimits &limits)
    : m_type(Type::List)
    , m_limits(limits)
{}

ActionValueLimits::ActionValueLimits(const StringLimits &limits)
    : m_type(Type::String)
    , m_limits(limits)
{}

ActionValueLimits::ActionValueLimits(const EnumLimits &limits)
    : m_type(Type::Enum)
    , m_limits(limits)
{}

ActionValueLimits ActionValueLimits::integer(long long min, long long max)
{
    return IntegerLimits{min, max};
}

ActionValueLimits ActionValueLimits::real(double min, double max)
{
    return DoubleLimits{min, max};
}

ActionValueLimits ActionValueLimits::entity(EntityType entityType, const QString &filter)
{
    return EntityLimits{entityType, filter};
}

ActionValueLimits ActionValueLimits::string(int minLength, int maxLength, const QString &regex)
{
    return StringLimits{minLength, maxLength, regex};
}

ActionValueLimits ActionValueLimits::enumeration(const QStringList &items)
{
    return EnumLimits{items};
}

ActionValueLimits ActionValueLimits::list(Type type, int minLength, int maxLength)
{
    return ListLimits(ActionValueLimits(type), minLength, maxLength);
}

ActionValueLimits ActionValueLimits::list(const ActionValueLimits &elementLimits, int minLength, int maxLength)
{
    return ListLimits(elementLimits, minLength, maxLength);
}

bool ActionValueLimits::hasLimits() const
{
    return !boost::get<boost::blank>(&m_limits);
}

void ActionValueLimits::clearLimits()
{
    m_limits = boost::blank();
}

void ActionValueLimits::fillDefaultLimits()
{
    switch (m_type) {
    case Type::Integer: m_limits = IntegerLimits(); break;
    case Type::Double: m_limits = DoubleLimits(); break;
    case Type::Entity: m_limits = EntityLimits(); break;
    case Type::String: m_limits = StringLimits(); break;
    case Type::List: m_limits = ListLimits(); break;
    case Type::Enum: m_limits = EnumLimits(); break;
    case Type::Void:
    case Type::Bool: break;
    }
}

ActionValueLimits::IntegerLimits ActionValueLimits::toInteger() const
{
    return heldOrDefault<IntegerLimits>(m_limits);
}

ActionValueLimits::DoubleLimits ActionValueLimits::toDouble() const
{
    return heldOrDefault<DoubleLimits>(m_limits);
}

ActionValueLimits::EntityLimits ActionValueLimits::toEntity() const
{
    return heldOrDefault<EntityLimits>(m_limits);
}

ActionValueLimits::StringLimits ActionValueLimits::toString() const
{
    return heldOrDefault<StringLimits>(m_limits);
}

ActionValueLimits::EnumLimits ActionValueLimits::toEnum() const
{
    return heldOrDefault<EnumLimits>(m_limits);
}

ActionValueLimits::ListLimits ActionValueLimits::toList() const
{
    return heldOrDefault<ListLimits>(m_limits);
}

void ActionValueLimits::tighten(const ActionValueLimits &other)
{
    if (m_type == Type::Void) {
        *this = other;
        return;
    }
    if (m_type != other.m_type || !other.hasLimits())
        return;
    switch (m_type) {
    case Type::Void:
    case Type::Bool: break;
    case Type::Integer: m_limits = narrowed(toInteger(), other.toInteger()); break;
    case Type::Double: m_limits = narrowed(toDouble(), other.toDouble()); break;
    case Type::String: {
        const auto own = toString();
        const auto given = other.toString();
        // This side's expression is never kept: two expressions cannot be joined, and the later limits count.
        m_limits = StringLimits{std::max(own.minLength, given.minLength), std::min(own.maxLength, given.maxLength),
                                given.regex};
        break;
    }
    case Type::Entity: {
        const auto own = toEntity();
        const auto given = other.toEntity();
        m_limits = EntityLimits{own.entityType == EntityType::Unknown ? given.entityType : own.entityType,
                                own.filter.isEmpty() ? given.filter : own.filter};
        break;
    }
    case Type::Enum: {
        const auto own = toEnum();
        m_limits = own.items.isEmpty() ? other.toEnum() : own;
        break;
    }
    case Type::List: tightenList(other.toList()); break;
    }
}

void ActionValueLimits::tightenList(const ListLimits &other)
{
    const auto own = toList();
    if (own.listType != Type::Void && own.listType != other.listType)
        return;
    auto narrow = ListLimits::fromValueLimits(own.toValueLimits().tightened(other.toValueLimits()));
    narrow.minLength = std::max(own.minLength, other.minLength);
    narrow.maxLength = std::min(own.maxLength, other.maxLength);
    m_limits = narrow;
}

ActionValueLimits ActionValueLimits::tightened(const ActionValueLimits &other) const
{
    auto copy = *this;
    copy.tighten(other);
    return copy;
}

QVariant ActionValueLimits::toVariant() const
{
    QVariantMap map{{"type", ActionDatatype::typeToString(m_type)}};
    switch (m_type) {
    case Type::Void:
    case Type::Bool: break;
    case Type::Integer: {
        const auto limits = toInteger();
        map.insert("min", std::max(limits.min, minInteger));
        map.insert("max", std::min(limits.max, maxInteger));
        break;
    }
    case Type::Double: {
        const auto limits = toDouble();
        map.insert("min", limits.min);
        map.insert("max", limits.max);
        break;
    }
    case Type::String: {
        const auto limits = toString();
        map.insert("minLength", limits.minLength);
        map.insert("maxLength", limits.maxLength);
        map.insert("regex", limits.regex);
        break;
    }
    case Type::List: {
        const auto limits = toList();
        map.insert("minLength", limits.minLength);
        map.insert("maxLength", limits.maxLength);
        map.insert("listType", ActionDatatype::typeToString(limits.listType));
        if (!boost::get<boost::blank>(&limits.elementLimits))
            map.insert("elementLimits", limits.toValueLimits().toVariant());
        break;
    }
    case Type::Entity: {
        const auto limits = toEntity();
        map.insert("entityType", ActionDatatype::EntityDatatype::typeToString(limits.entityType));
        map.insert("filter", limits.filter);
        break;
    }
    case Type::Enum: {
        const auto limits = toEnum();
        map.insert("editable", limits.items.isEmpty());
        map.insert("items", limits.items);
        break;
    }
    }
    return map;
}

ActionValueLimits ActionValueLimits::fromVariant(const QVariant &variant)
{
    const auto map = variant.toMap();
    const auto type = ActionDatatype::typeFromString(map.value("type").toString());
    switch (type) {
    case Type::Integer: return integer(integerFrom(map.value("min")), integerFrom(map.value("max")));
    case Type::Double: return real(map.value("min").toDouble(), map.value("max").toDouble());
    case Type::String:
        return string(intFrom(map.value("minLength")), intFrom(map.value("maxLength")), map.value("regex").toString());
    case Type::List: {
        const auto element = readElement(map.value("elementLimits").toMap());
        const int minLength = intFrom(map.value("minLength"));
        const int maxLength = intFrom(map.value("maxLength"));
        if (element.hasLimits())
            return list(element, minLength, maxLength);
        return list(ActionDatatype::typeFromString(map.value("listType").toString()), minLength, maxLength);
    }
    case Type::Entity:
        return entity(ActionDatatype::EntityDatatype::typeFromString(map.value("entityType").toString()),
                      map.value("filter").toString());
    case Type::Enum: return enumeration(map.value("items").toStringList());
    case Type::Void:
    case Type::Bool: break;
    }
    return ActionValueLimits(type);
}

ActionValueLimits ActionValueLimits::readElement(const QVariantMap &map)
{
    // Lists in a list keep none of their limits, so that reading goes down one level, however deep the map is.
    if (ActionDatatype::typeFromString(map.value("type").toString()) == Type::List)
        return ListLimits();
    return fromVariant(map);
}

bool operator==(const ActionValueLimits &left, const ActionValueLimits &right)
{
    return left.m_type == right.m_type && left.m_limits == right.m_limits;
}

bool operator==(const ActionValueLimits::IntegerLimits &left, const ActionValueLimits::IntegerLimits &right)
{
    return left.min == right.min && left.max == right.max;
}

bool operator==(const ActionValueLimits::DoubleLimits &left, const ActionValueLimits::DoubleLimits &right)
{
    return left.min == right.min && left.max == right.max;
}

bool operator==(const ActionValueLimits::EntityLimits &left, const ActionValueLimits::EntityLimits &right)
{
    return left.entityType == right.entityType && left.filter == right.filter;
}

bool operator==(const ActionValueLimits::StringLimits &left, const ActionValueLimits::StringLimits &right)
{
    return left.minLength == right.minLength && left.maxLength == right.maxLength && left.regex == right.regex;
}

bool operator==(const ActionValueLimits::EnumLimits &left, const ActionValueLimits::EnumLimits &right)
{
    return left.items == right.items;
}

bool operator==(const ActionValueLimits::ListLimits &left, const ActionValueLimits::ListLimits &right)
{
    return left.listType == right.listType && left.elementLimits == right.elementLimits
        && left.minLength == right.minLength && left.maxLength == right.maxLength;
}

} // namespace Model
