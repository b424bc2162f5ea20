// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "model/Actions.h"
#include "model/ParameterDeclaration.h"

#include <QString>
#include <QUuid>
#include <vector>

namespace Model {
struct Shop;
}

// Fills a new site with the default script actions and a first plan.
class DefaultsManager
{
public:
    explicit DefaultsManager(Model::Shop &shop);

    void fillDefaultActions();
    // Puts an action with the text of that resource into the site. One that cannot be read is logged and left out.
    void createAction(const QString &name, const QString &category,
                      const std::vector<Model::ParameterDeclaration> &parameters, const QString &scriptResource,
                      unsigned short number);

    static QUuid uidForDefault(unsigned short number); // that of the standard blueprint of this number

private:
    Model::Shop &m_shop;
};
