// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "link/document/Errors.h"
#include "link/document/Request.h"

#include <QByteArray>
#include <initializer_list>

namespace Demo {

// Reads request documents to the letter, where the shared classes are lenient: a key that must be there is missed, a
// value of a wrong type is a complaint.
class RequestReader
{
public:
    enum class Kind { Flag, Integer, Map, Number, Text, TextListOrNull, Uid, UidList, UidListOrNull, List };

    struct Attribute
    {
        const char *name;
        Kind kind;
    };

    // The request, when no error was added.
    static JsonAPI::Request read(const QByteArray &json, JsonAPI::Errors &errors);

    // Complains of an entity of another type and of each attribute that is there with a value of another kind.
    static void check(const JsonAPI::Entity &entity, const char *type, std::initializer_list<Attribute> attributes,
                      JsonAPI::Errors &errors);
    static bool isOfKind(const QVariant &value, Kind kind);
};

} // namespace Demo
