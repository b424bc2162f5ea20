// SPDX-License-Identifier: GPL-3.0-or-later
#include "actions/ActionSequenceBuilder.h"

#include "model/StandardBlueprints.h"

namespace {

using Actions = QQmlListProperty<ActionWrapperBuilder>;
using Steps = QList<QPointer<ActionWrapperBuilder>>;

Steps &steps(Actions *property)
{
    return *static_cast<Steps *>(property->data);
}

void appendStep(Actions *property, ActionWrapperBuilder *step)
{
    steps(property).append(step);
}

int stepCount(Actions *property)
{
    return steps(property).size();
}

ActionWrapperBuilder *stepAt(Actions *property, int position)
{
    return steps(property).value(position);
}

void clearSteps(Actions *property)
{
    steps(property).clear();
}

} // namespace

QQmlListProperty<ActionWrapperBuilder> ActionSequenceBuilder::getActions()
{
    return {this, &m_actions, appendStep, stepCount, stepAt, clearSteps};
}

Model::ActionSequence ActionSequenceBuilder::toSequence() const
{
    Model::ActionSequence sequence;
    for (const auto &step : m_actions) {
        if (step) // a script may have destroyed it
            sequence.instances.push_back(step->toWrapper().toBlueprint());
    }
    return sequence;
}

QString ActionSequenceBuilder::getStandardAction(StandardAction action) const
{
    return Model::StandardBlueprints::persistentUID(static_cast<unsigned short>(action)).toString();
}
