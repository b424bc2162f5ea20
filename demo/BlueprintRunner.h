// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "demo/DemoSite.h"
#include "link/document/Errors.h"

#include <QDateTime>

namespace Demo {

// Runs blueprints: works out what reaches the outputs of a graph and does it to the zones of the instance. Graphs come
// from clients: wires may lead in circles, nodes may be of no known type, and either ends in nothing being done.
class BlueprintRunner
{
public:
    BlueprintRunner(DemoSite &site, const QDateTime &siteTime);

    // Complains of what the site could not run: an unknown blueprint or zone, a node of no known type inside.
    static void check(const DemoSite &site, const Model::ActionBlueprintInstance &instance, JsonAPI::Errors &errors);
    static bool knowsNode(const DemoSite &site, const QString &type);

    void run(const Model::ActionBlueprintInstance &instance);
    // Instances without zones act on those given.
    void run(const Model::ActionSequence &sequence, const QSet<QUuid> &zones = {});

private:
    void run(const Model::ActionBlueprint &blueprint, const Model::ActionBlueprintInstance &instance, int depth);

    DemoSite &m_site;
    QDateTime m_time;
    int m_steps = 0; // blueprints in blueprints may multiply without end
};

} // namespace Demo
