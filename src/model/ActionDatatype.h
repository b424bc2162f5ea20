// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>
#include <QUuid>
#include <QVariant>
#include <QVariantList>
#include <boost/variant.hpp>
#include <vector>

namespace Model {

// One value of the automation side: a node's property, a device parameter, a setting of a schedule point.
// A tag and a union; the tag decides which alternative counts. Conversions are total: a value of another kind is
// converted, never refused.
class ActionDatatype
{
public:
    enum class Type { Void = 0, Integer = 1, Double = 2, Bool = 3, String = 4, List = 5, Entity = 6, Enum = 7 };

    // A reference to an object of the site.
    struct EntityDatatype
    {
        enum class EntityType { Device = 0, Zone = 1, Button = 2, Part = 3, Indicator = 4, Unknown = 5 };

        EntityDatatype() = default;
        EntityDatatype(const QUuid &uid); // of type Unknown
        EntityDatatype(EntityType type, const QUuid &uid);

        EntityType type = EntityType::Unknown;
        QUuid uid;

        static QString typeToString(EntityType type);
        static EntityType typeFromString(const QString &text); // Device for an unknown text
    };

    // A position in the item list of an enumeration.
    struct EnumDatatype
    {
        long long index = 0;
    };

    using List = std::vector<ActionDatatype>;
    using Union = boost::variant<long long, double, bool, QString, List, EntityDatatype, EnumDatatype>;

    ActionDatatype() = default; // void
    ActionDatatype(long long value);
    ActionDatatype(double value);
    ActionDatatype(bool value);
    ActionDatatype(const QString &value);
    ActionDatatype(const List &value);
    ActionDatatype(const EntityDatatype &value);
    ActionDatatype(const EnumDatatype &value);
    // From whatever a screen or a script handed over, by the variant's type; void when nothing fits.
    explicit ActionDatatype(const QVariant &value);
    ActionDatatype(const char *value) = delete; // would choose bool

    static ActionDatatype device(const QUuid &uid);
    static ActionDatatype zone(const QUuid &uid);
    static ActionDatatype button(const QUuid &uid);
    static ActionDatatype part(const QUuid &uid);
    static ActionDatatype indicator(const QUuid &uid);

    static QString typeToString(Type type); // empty for a code outside the enumeration
    static Type typeFromString(const QString &text); // case-sensitive; Void for an unknown text

    Type type() const { return m_type; }
    bool isVoid() const { return m_type == Type::Void; }

    long long toInteger() const;
    double toDouble() const;
    bool toBool() const;
    QString toString() const;
    List toList() const;
    EntityDatatype toEntity() const;
    EnumDatatype toEnum() const;
    Union toType(Type type) const;

    void setValue(const ActionDatatype &other); // keeps this value's tag, unless void

    QVariant valueToVariant() const; // the bare value, for a property editor
    QVariant toVariantMap() const; // {"type", "value"}; an invalid variant for void
    static ActionDatatype fromVariantMap(const QVariant &map);

    friend bool operator==(const ActionDatatype &left, const ActionDatatype &right);

private:
    using Reader = ActionDatatype (*)(const QVariant &, int depth);

    // Lists from outside may lie in each other; beyond this depth they are read as empty, to spare the stack.
    static constexpr int maxDepth = 1024;

    static ActionDatatype readMap(const QVariant &variant, int depth);
    static ActionDatatype readVariant(const QVariant &variant, int depth);
    static ActionDatatype readList(const QVariantList &list, int depth, Reader reader);

    Type m_type = Type::Void;
    Union m_value = 0LL;
};

bool operator==(const ActionDatatype &left, const ActionDatatype &right);
inline bool operator!=(const ActionDatatype &left, const ActionDatatype &right)
{
    return !(left == right);
}
bool operator==(const ActionDatatype::EntityDatatype &left, const ActionDatatype::EntityDatatype &right);
bool operator==(const ActionDatatype::EnumDatatype &left, const ActionDatatype::EnumDatatype &right);

} // namespace Model
