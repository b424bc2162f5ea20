// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "link/document/Entity.h"
#include "link/document/Errors.h"
#include "link/document/Included.h"
#include "model/Result.h"

#include <QByteArray>
#include <QString>
#include <QVariant>
#include <QVariantList>
#include <QVersionNumber>
#include <vector>

namespace JsonAPI {

// A reply document, and the body of a publication: entities with related records, or errors.
class Response
{
public:
    Response();
    explicit Response(const QVariant &entity); // "data" is written as an object
    explicit Response(const QVariantList &entities);
    explicit Response(const std::vector<Entity> &entities);
    // A result document: one entity "response" whose relationships "added", "changed" and "deleted" name the touched
    // records, which are of the given type. Failures become errors.
    Response(const QString &type, const std::vector<Model::Result> &results);

    static Response error(const QString &code, const QString &title, const QString &detail = {});

    struct Prepared
    {
        static Response accessDenied();
    };

    // Text that does not parse gives an empty reply: no data, no errors, the program's own version.
    static Response fromByteArray(const QByteArray &bytes);
    static Response fromVariant(const QVariant &variant);

    std::vector<Entity> data; // not read when there are errors
    bool single = false; // "data" is written as an object
    Included included;
    Errors errors;
    QVersionNumber serverVersion; // the program's own version when the document does not tell

    const Entity &datum() const { return data.front(); } // only when data is not empty

    QVariant toVariant() const;
    QByteArray toByteArray() const;
};

} // namespace JsonAPI
