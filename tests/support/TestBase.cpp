// SPDX-License-Identifier: GPL-3.0-or-later
#include "support/TestBase.h"

#include <QMutex>
#include <algorithm>
#include <vector>

namespace {

struct Expectation
{
    QtMsgType type;
    QRegularExpression pattern;
    bool once;
};

QMutex messagesMutex; // messages may come on any thread
std::vector<Expectation> expectations;
QStringList unexpectedMessages;
QtMessageHandler testHandler = nullptr;

bool isExpected(QtMsgType type, const QString &message)
{
    const auto found = std::find_if(expectations.begin(), expectations.end(), [&](const Expectation &expectation) {
        return (!expectation.once || expectation.type == type) && expectation.pattern.match(message).hasMatch();
    });
    if (found == expectations.end())
        return false;
    if (found->once)
        expectations.erase(found);
    return true;
}

void watchMessages(QtMsgType type, const QMessageLogContext &context, const QString &message)
{
    {
        QMutexLocker locker(&messagesMutex);
        if (type != QtDebugMsg && type != QtInfoMsg) {
            if (isExpected(type, message))
                return;
            if (type != QtFatalMsg)
                unexpectedMessages << message;
        }
    }
    if (testHandler)
        testHandler(type, context, message);
}

} // namespace

void TestBase::expectMessage(QtMsgType type, const QString &pattern)
{
    QMutexLocker locker(&messagesMutex);
    expectations.push_back({type, QRegularExpression(pattern), true});
}

void TestBase::allowMessages(const QString &pattern)
{
    QMutexLocker locker(&messagesMutex);
    expectations.push_back({QtWarningMsg, QRegularExpression(pattern), false});
}

void TestBase::init()
{
    QMutexLocker locker(&messagesMutex);
    expectations.clear();
    unexpectedMessages.clear();
    testHandler = qInstallMessageHandler(watchMessages);
}

void TestBase::cleanup()
{
    qInstallMessageHandler(testHandler);
    QMutexLocker locker(&messagesMutex);
    testHandler = nullptr;
    QStringList missing;
    for (const auto &expectation : expectations) {
        if (expectation.once)
            missing << expectation.pattern.pattern();
    }
    if (QTest::currentTestFailed())
        return;
    QVERIFY2(unexpectedMessages.isEmpty(), qPrintable("Unexpected message: " + unexpectedMessages.join('\n')));
    QVERIFY2(missing.isEmpty(), qPrintable("Expected message did not come: " + missing.join('\n')));
}
