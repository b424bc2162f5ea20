// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "demo/Journal.h"
#include "model/ActionBlueprint.h"
#include "model/DeviceTypeInfo.h"
#include "model/Devices.h"
#include "model/NodeDescription.h"
#include "model/PlanObjects.h"
#include "model/Schedule.h"
#include "model/Settings.h"
#include "model/Site.h"
#include "model/UserInfo.h"

#include <QHash>
#include <QMap>
#include <QString>
#include <QStringList>
#include <QUuid>
#include <QVariantMap>
#include <boost/optional.hpp>
#include <vector>

namespace Demo {

// A zone with the site's own rule for devices in automatic mode: a level that daylight moves up and down.
struct SiteZone
{
    Model::Zone zone;
    int level = 80; // percent, at half daylight
    int swing = 20; // percent between night and noon
};

struct SiteDeviceType;

// A device with what it reports and how it is driven.
struct SiteDevice
{
    Model::DeviceDescriptor descriptor;
    QVariantMap state;
    Model::DeviceMode::Mode mode = Model::DeviceMode::Mode::Automatic;
    quint64 stateRevision = 0; // differs for each state that any device ever had

    QString title(const SiteDeviceType *type) const; // its name, or what it is and its address
};

// A device type in the site's own language, with overlays by language.
struct SiteDeviceType
{
    Model::DeviceTypeInfo info;
    QMap<QString, QVariantMap> translations; // by language code, such as "en"

    bool hasPower() const; // whether its devices can be told a power
};

struct SiteButton
{
    Model::Button button;
    Model::ButtonState::State state = Model::ButtonState::State::Off;
};

// What the site itself decides about an indicator: a measured value, and looks from a threshold on.
struct IndicatorRule
{
    enum class Measure { FailedDevices, MeanPower, DeviceValue };

    struct Look
    {
        double from = 0; // the last look that the value reaches counts
        double opacity = 1;
        boost::optional<QString> text; // "%1" stands for the value
        boost::optional<QString> textColor;
        boost::optional<QString> icon;
        boost::optional<QString> iconColor;
    };

    Measure measure = Measure::FailedDevices;
    QUuid scope; // a plan or a zone, the device of a device's value; null: the whole site
    QString property; // of the device's state
    std::vector<Look> looks; // by threshold, ascending
};

struct SiteIndicator
{
    Model::Indicator indicator;
    boost::optional<IndicatorRule> rule;
};

// A picture: its place on a plan, and the file.
struct SiteImage
{
    Model::ImageItem item; // without the picture
    Model::ImageItem::Image image;
};

// A blueprint in the site's own language, with overlays by language: "name", and "labels" by global name.
struct SiteBlueprint
{
    Model::ActionBlueprint blueprint;
    QMap<QString, QVariantMap> translations;

    Model::ActionBlueprint localized(const QString &language) const;
    Model::NodeDescription asNode(const QString &language) const; // as one node of other blueprints
    static QString nodeTypePrefix(); // followed by the uid
};

// A node type in the site's own language, with overlays by language: "name", "description", "category"; "inputs",
// "outputs" and "properties" by name; "items" of enumerations by the name of the property.
struct SiteNode
{
    Model::NodeDescription description;
    QMap<QString, QVariantMap> translations;

    Model::NodeDescription localized(const QString &language) const;
};

// Everything that the site file tells; lists keep their order.
struct SiteData
{
    QUuid uid;
    QString name;
    QString timezone;
    QStringList comPorts;
    std::vector<Model::UserInfo> users; // with passwords
    std::vector<SiteDeviceType> deviceTypes;
    std::vector<Model::ShopPart> parts;
    std::vector<SiteZone> zones;
    std::vector<SiteDevice> devices;
    std::vector<SiteButton> buttons;
    std::vector<SiteIndicator> indicators;
    std::vector<SiteImage> images;
    std::vector<Model::View3DItem> view3DItems; // with their meshes
    std::vector<SiteBlueprint> blueprints; // the system's first
    std::vector<SiteNode> nodes;
    std::vector<Model::ScheduleDay> days;
    Model::Settings settings;
    QHash<QUuid, Model::DevicePowerOnInfo> powerOn; // by device
    Journal journal;
};

// Of overlays by language: Russian is the site's own, which has none; languages that it does not know see English.
const QVariantMap *overlayFor(const QMap<QString, QVariantMap> &translations, const QString &language);

} // namespace Demo
