// SPDX-License-Identifier: GPL-3.0-or-later
// Runs all test classes of one program, each in turn, in a home of its own. With the name of a class as first
// argument it runs that one alone, and hands the rest of the arguments to Qt Test.
#include "support/TestBase.h"

#include <QApplication>
#include <QLocale>
#include <QStandardPaths>
#include <QTemporaryDir>
#include <algorithm>
#include <cstdio>
#include <utility>
#include <vector>

namespace {

using Registered = std::pair<QString, TestRegistration::Factory>;

std::vector<Registered> &registeredTests()
{
    static std::vector<Registered> tests;
    return tests;
}

} // namespace

TestRegistration::TestRegistration(const char *name, const Factory &factory)
{
    registeredTests().emplace_back(QString::fromLatin1(name), factory);
}

int main(int argc, char **argv)
{
    QTemporaryDir home;
    qputenv("HOME", home.path().toLocal8Bit());
    qputenv("XDG_DATA_HOME", (home.path() + "/data").toLocal8Bit());
    qputenv("XDG_CONFIG_HOME", (home.path() + "/config").toLocal8Bit());
    qputenv("XDG_CACHE_HOME", (home.path() + "/cache").toLocal8Bit());
    qputenv("TZ", "UTC");
    QLocale::setDefault(QLocale(QStringLiteral("ru_RU")));

    QApplication application(argc, argv);
    QStringList arguments = application.arguments();
    QString only;
    if (arguments.size() > 1 && !arguments.at(1).startsWith('-')) {
        const QString name = arguments.at(1);
        const auto isNamed = [&](const Registered &test) { return test.first == name; };
        if (std::any_of(registeredTests().begin(), registeredTests().end(), isNamed))
            only = arguments.takeAt(1);
    }

    int failures = 0;
    int run = 0;
    for (const auto &test : registeredTests()) {
        if (!only.isEmpty() && test.first != only)
            continue;
        ++run;
        const auto object = test.second();
        failures += QTest::qExec(object.get(), arguments) == 0 ? 0 : 1;
    }
    std::printf("%d test classes run, %d failed\n", run, failures);
    return failures == 0 && run > 0 ? 0 : 1;
}
