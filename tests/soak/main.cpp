// SPDX-License-Identifier: GPL-3.0-or-later
#include "soak/Soak.h"

#include <QApplication>
#include <QCommandLineParser>
#include <QLoggingCategory>
#include <cstdio>

int main(int argc, char **argv)
{
    QApplication application(argc, argv);
    QLoggingCategory::setFilterRules(QStringLiteral("*.debug=false"));
    QLocale::setDefault(QLocale(QStringLiteral("ru_RU")));
    QCommandLineParser parser;
    parser.setApplicationDescription(QStringLiteral("The client against a server that keeps going away."));
    parser.addHelpOption();
    parser.addOptions({
        {QStringLiteral("devices"), QStringLiteral("Size of the site."), QStringLiteral("number"),
         QStringLiteral("1000")},
        {QStringLiteral("tick"), QStringLiteral("Milliseconds between publications."), QStringLiteral("ms"),
         QStringLiteral("1000")},
        {QStringLiteral("restarts"), QStringLiteral("Restarts of the server."), QStringLiteral("times"),
         QStringLiteral("0")},
        {QStringLiteral("restart-seconds"), QStringLiteral("No restart begins after so long; 0 for no limit."),
         QStringLiteral("seconds"), QStringLiteral("0")},
        {QStringLiteral("publication-kills"), QStringLiteral("Losses of the publication port alone."),
         QStringLiteral("times"), QStringLiteral("0")},
        {QStringLiteral("growth"), QStringLiteral("Seconds for which memory is watched."), QStringLiteral("seconds"),
         QStringLiteral("0")},
    });
    parser.process(application);
    const auto number = [&](const char *name) { return parser.value(QString::fromLatin1(name)).toInt(); };

    Soak soak(number("devices"), number("tick"));
    bool passed = soak.begin();
    passed = passed && soak.restart(number("restarts"), number("restart-seconds"));
    passed = passed && soak.killPublications(number("publication-kills"));
    passed = passed && (number("growth") == 0 || soak.watchGrowth(number("growth")));
    std::printf("%s\n", passed ? "The soak passed." : "The soak FAILED.");
    return passed ? 0 : 1;
}
