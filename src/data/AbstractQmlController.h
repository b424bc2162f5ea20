// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "data/AbstractController.h"

#include <QList>
#include <QString>

// A controller that also selects tiles. Tiles are known by the object name "tileControl" and carry a property
// "selected"; everything else about them is the business of QML.
class AbstractQmlController : public AbstractController
{
    Q_OBJECT

public:
    using AbstractController::AbstractController;

public slots:
    void deselectAllControls(QObject *obj);
    void selectAllControls(QObject *obj);
    void selectAllControls(QObject *obj, const QString &parentFilter); // of parents with that object name only
    int getSelectedControlsCount(QObject *item);
    QList<QObject *> getControls(QObject *item);
};
