// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "demo/DemoServer.h"

#include <QString>
#include <QStringList>

namespace Demo {

// The command line of the demo server.
struct DemoOptions
{
    enum class Action { Run, ShowText, Fail };

    Action action = Action::Run;
    QString text; // the help, or what is wrong
    DemoServer::Settings settings;
    QString siteFile; // empty: the built-in site
    int scale = 1;
    int devices = 0; // 0: as the site has them

    static DemoOptions parse(const QStringList &arguments); // with the program's name first

    // The site that the options ask for; false with a message if its file cannot be read.
    bool loadSite(SiteData *site, QString *error) const;
};

} // namespace Demo
