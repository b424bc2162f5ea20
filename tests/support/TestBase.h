// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QObject>
#include <QRegularExpression>
#include <QtTest>
#include <functional>
#include <memory>

// What is waited for may take this long, in milliseconds: a machine under load is no failure. A test that passes does
// not wait for it.
constexpr int patience = 20000;

#undef QTRY_VERIFY
#define QTRY_VERIFY(expression) QTRY_VERIFY_WITH_TIMEOUT((expression), patience)
#undef QTRY_COMPARE
#define QTRY_COMPARE(actual, expected) QTRY_COMPARE_WITH_TIMEOUT((actual), (expected), patience)

// Base of every test class. A message at warning level or above that no test expected makes the running test fail.
// A class with init() or cleanup() of its own calls the base's.
class TestBase : public QObject
{
    Q_OBJECT

protected:
    // One message of that level that contains a match is expected until the test ends, and must come.
    void expectMessage(QtMsgType type, const QString &pattern);
    // Any number of messages that contain a match are allowed until the test ends.
    void allowMessages(const QString &pattern);

protected slots: // not private, since Qt Test would run them as tests
    void init();
    void cleanup();
};

// Puts a test class on the list that TestMain runs: ONDIRA_TEST(ZoneJsonTest), once in its source file.
class TestRegistration
{
public:
    using Factory = std::function<std::unique_ptr<QObject>()>;

    TestRegistration(const char *name, const Factory &factory);
};

#define ONDIRA_TEST(Class)                                                                                             \
    static const TestRegistration registrationOf##Class(#Class, [] { return std::make_unique<Class>(); });
