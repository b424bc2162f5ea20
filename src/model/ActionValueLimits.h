// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "model/ActionDatatype.h"

#include <QString>
#include <QStringList>
#include <QVariant>
#include <QVariantMap>
#include <boost/blank.hpp>
#include <boost/variant.hpp>
#include <limits>

namespace Model {

// The range that an ActionDatatype may take: carried, combined and shown to the editors, which enforce it.
class ActionValueLimits
{
public:
    using Type = ActionDatatype::Type;
    using EntityType = ActionDatatype::EntityDatatype::EntityType;

    // Plus and minus 2^53 - 1: the largest range that survives a number of JSON.
    static constexpr long long maxInteger = 9007199254740991LL;
    static constexpr long long minInteger = -9007199254740991LL;
    static constexpr int maxLengthDefault = 2147483647;

    struct IntegerLimits
    {
        long long min = minInteger;
        long long max = maxInteger;
    };

    struct DoubleLimits
    {
        double min = std::numeric_limits<double>::lowest();
        double max = std::numeric_limits<double>::max();
    };

    struct EntityLimits
    {
        EntityType entityType = EntityType::Unknown;
        QString filter;
    };

    struct StringLimits
    {
        int minLength = 0;
        int maxLength = maxLengthDefault;
        QString regex;
    };

    struct EnumLimits
    {
        QStringList items;
    };

    struct ListLimits
    {
        using Element = boost::variant<boost::blank, IntegerLimits, DoubleLimits, EntityLimits, StringLimits>;

        ListLimits() = default;
        ListLimits(const ActionValueLimits &element, int minLength, int maxLength);

        Type listType = Type::Void;
        Element elementLimits;
        int minLength = 0;
        int maxLength = maxLengthDefault;

        static ListLimits fromValueLimits(const ActionValueLimits &limits);
        ActionValueLimits toValueLimits() const;
    };

    using Union =
        boost::variant<boost::blank, IntegerLimits, DoubleLimits, EntityLimits, ListLimits, StringLimits, EnumLimits>;

    ActionValueLimits() = default; // void
    explicit ActionValueLimits(Type type); // that type with no limits
    ActionValueLimits(const IntegerLimits &limits);
    ActionValueLimits(const DoubleLimits &limits);
    ActionValueLimits(const EntityLimits &limits);
    ActionValueLimits(const ListLimits &limits);
    ActionValueLimits(const StringLimits &limits);
    ActionValueLimits(const EnumLimits &limits);

    static ActionValueLimits integer(long long min, long long max);
    static ActionValueLimits real(double min, double max);
    static ActionValueLimits entity(EntityType entityType, const QString &filter);
    static ActionValueLimits string(int minLength, int maxLength, const QString &regex);
    static ActionValueLimits enumeration(const QStringList &items);
    static ActionValueLimits list(Type type, int minLength, int maxLength);
    static ActionValueLimits list(const ActionValueLimits &elementLimits, int minLength, int maxLength);

    Type type() const { return m_type; }
    bool isVoid() const { return m_type == Type::Void; }
    bool hasLimits() const;
    void clearLimits(); // keeps the type
    void fillDefaultLimits();

    // The held record, or the default of the kind when another is held.
    IntegerLimits toInteger() const;
    DoubleLimits toDouble() const;
    EntityLimits toEntity() const;
    StringLimits toString() const;
    EnumLimits toEnum() const;
    ListLimits toList() const;

    void tighten(const ActionValueLimits &other); // narrows in place; no check that min stays at or below max
    ActionValueLimits tightened(const ActionValueLimits &other) const;

    QVariant toVariant() const; // integers are clamped to 53 bits on writing
    static ActionValueLimits fromVariant(const QVariant &map);

    friend bool operator==(const ActionValueLimits &left, const ActionValueLimits &right);

private:
    static ActionValueLimits readElement(const QVariantMap &map);
    void tightenList(const ListLimits &other);

    Type m_type = Type::Void;
    Union m_limits;
};

bool operator==(const ActionValueLimits &left, const ActionValueLimits &right);
bool operator==(const ActionValueLimits::IntegerLimits &left, const ActionValueLimits::IntegerLimits &right);
bool operator==(const ActionValueLimits::DoubleLimits &left, const ActionValueLimits::DoubleLimits &right);
bool operator==(const ActionValueLimits::EntityLimits &left, const ActionValueLimits::EntityLimits &right);
bool operator==(const ActionValueLimits::StringLimits &left, const ActionValueLimits::StringLimits &right);
bool operator==(const ActionValueLimits::EnumLimits &left, const ActionValueLimits::EnumLimits &right);
bool operator==(const ActionValueLimits::ListLimits &left, const ActionValueLimits::ListLimits &right);

} // namespace Model
