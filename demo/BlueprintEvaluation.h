// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "demo/DemoSite.h"

#include <QDateTime>
#include <QHash>
#include <QSet>

namespace Demo {

// The values in one graph while it runs: each node is worked out once, when something asks for it.
class BlueprintEvaluation
{
public:
    using Datatype = Model::ActionDatatype;
    using Function = Datatype (*)(BlueprintEvaluation &evaluation, const Model::NodeInstance &node);

    BlueprintEvaluation(const DemoSite &site, const QDateTime &siteTime, const Model::ActionBlueprint &blueprint,
                        const Model::ActionBlueprintInstance &instance);

    // What an input gets: from its wire, or else the property of that name. Void where nothing comes.
    static bool isConnected(const Model::NodeInstance &node, const QString &name);
    Datatype input(const Model::NodeInstance &node, const QString &name);
    Datatype property(const Model::NodeInstance &node, const QString &name) const;

    const DemoSite &site() const { return m_site; }
    const QDateTime &time() const { return m_time; }
    const QSet<QUuid> &zones() const { return m_instance.zones; }

    // Null for a node that gives no value.
    static Function function(const QString &nodeType);

private:
    Datatype value(const Model::NodeInstance &node);

    const DemoSite &m_site;
    QDateTime m_time;
    const Model::ActionBlueprint &m_blueprint;
    const Model::ActionBlueprintInstance &m_instance;
    QHash<QUuid, const Model::NodeInstance *> m_nodes;
    QHash<QUuid, Datatype> m_values;
    QSet<QUuid> m_open; // being worked out: a wire back to one of them gives nothing
};

} // namespace Demo
