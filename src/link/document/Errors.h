// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>
#include <QVariant>
#include <QVariantList>
#include <vector>

namespace JsonAPI {

// What went wrong with a request, in the order in which the server found it.
class Errors
{
public:
    struct Verbose
    {
        QString code; // an English word
        QString title; // for the user
        QString detail;
    };

    Errors() = default;
    explicit Errors(const QVariant &list); // a list of maps

    void add(const QString &code, const QString &title, const QString &detail = {});
    bool isEmpty() const { return m_errors.empty(); }
    const std::vector<Verbose> &list() const { return m_errors; }

    QVariantList toVariant() const;

private:
    std::vector<Verbose> m_errors;
};

} // namespace JsonAPI
