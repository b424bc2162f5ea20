// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>
#include <QMetaType>
#include <QString>
#include <QUuid>
#include <QVariant>
#include <boost/optional.hpp>
#include <vector>

namespace Model {

// The outcome of a server operation: a key that tells the kind of success with its value, or an error.
struct Result
{
    // The one shape in which failures reach the user.
    struct Error
    {
        QString code; // an English word, such as "auth_error"
        QString title; // one line for the user
        QString detail; // the long text, may be empty
    };

    struct Success
    {
        QByteArray key;
        QVariant value;
    };

    QByteArray key;
    QVariant value;
    boost::optional<Error> failure; // engaged on failure, with key and value empty

    static Result ok();
    static Result ok(const QByteArray &key, const QString &id); // key + "/uid"
    static Result added(const QString &id);
    static Result added(const QUuid &uid);
    static Result changed(const QString &id);
    static Result changed(const QUuid &uid);
    static Result deleted(const QString &id);
    static Result deleted(const QUuid &uid);
    static Result custom(const QByteArray &key, const QVariant &value);
    static Result data(const QVariant &value);
    static Result error(const QString &code, const QString &title, const QString &detail = {});

    boost::optional<Error> getError() const;
    boost::optional<Success> getResult() const; // none on failure
};

bool operator==(const Result::Error &left, const Result::Error &right);
bool operator==(const Result &left, const Result &right);

} // namespace Model

Q_DECLARE_METATYPE(Model::Result::Error)
Q_DECLARE_METATYPE(std::vector<Model::Result::Error>)
