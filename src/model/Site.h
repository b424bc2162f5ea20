// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "model/Actions.h"
#include "model/Devices.h"
#include "model/PlanObjects.h"
#include "model/Position.h"
#include "model/Schedule.h"

#include <QCoreApplication>
#include <QHash>
#include <QMetaType>
#include <QString>
#include <QUuid>
#include <vector>

namespace Model {

// One plan or floor of the site ("object" in the user's words).
struct ShopPart
{
    QUuid uid;
    QString name = QCoreApplication::translate("Model::ShopPart", "Объект");
};

// A group of devices placed on a plan. Lengths are canvas units, the canvas being 4096 by 4096.
struct Zone
{
    QUuid uid;
    QUuid partUid;
    QString name;
    Position position;
    double width = 100.0; // of a zone made here; a document without the key reads as 0
    double height = 100.0;
};

// A text placed on a plan.
struct TextLabel
{
    QUuid uid;
    QUuid partUid;
    QString text;
    Position position;
    double width = 0.0;
    double height = 0.0;
};

// Kept from older sites, where a sensor was a record of its own.
struct Sensor
{
    QUuid uid;
};

// The whole site in one record. Live data comes by the separate lists; this serves site-wide calls.
struct Shop
{
    QUuid uid;
    QString name = QStringLiteral("Завод");
    QString terminalName = QStringLiteral("Терминал");
    QHash<QUuid, ScheduleDay> scheduleDays;
    QHash<QUuid, ScheduleWeek> scheduleWeeks; // never written, like the terminal's name, sensors and pictures
    QHash<QUuid, Sensor> sensors;
    QHash<QUuid, Action> actions;
    QHash<QUuid, Button> buttons;
    QHash<QUuid, Zone> zones;
    QHash<QUuid, TextLabel> labels;
    QHash<QUuid, ShopPart> shopParts;
    QHash<QUuid, ImageItem> imageItems;
    QHash<QUuid, DeviceDescriptor> devices;
    QHash<QUuid, Indicator> indicators;
};

bool operator==(const ShopPart &left, const ShopPart &right);
bool operator==(const Zone &left, const Zone &right);
bool operator==(const TextLabel &left, const TextLabel &right);
bool operator==(const Sensor &left, const Sensor &right);
bool operator==(const Shop &left, const Shop &right);

} // namespace Model

Q_DECLARE_METATYPE(Model::Shop)
Q_DECLARE_METATYPE(Model::ShopPart)
Q_DECLARE_METATYPE(Model::Zone)
Q_DECLARE_METATYPE(std::vector<Model::ShopPart>)
Q_DECLARE_METATYPE(std::vector<Model::Zone>)
