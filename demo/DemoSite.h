// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "demo/SiteData.h"
#include "model/Statistics.h"

#include <QHash>
#include <QObject>
#include <QSet>

namespace Demo {

// The state of the site while the server runs. Owned by the server; requests and the simulation change it, the
// publisher listens. Callers have checked what they put in: references hold, logins and uids are known.
class DemoSite : public QObject
{
    Q_OBJECT

public:
    enum class List {
        ActionNodes,
        Blueprints,
        Buttons,
        ButtonStates,
        DeviceModes,
        DeviceStates,
        DeviceTypes,
        Devices,
        ImageItems,
        IndicatorStates,
        Indicators,
        PowerOnStatistics,
        Schedules,
        Settings,
        ShopParts,
        Users,
        View3DItems,
        Zones
    };
    Q_ENUM(List)

    explicit DemoSite(const SiteData &data, QObject *parent = nullptr);

    const SiteData &data() const { return m_data; }

    // Null for an unknown one. Valid until that list changes.
    const Model::ShopPart *part(const QUuid &uid) const;
    const SiteZone *zone(const QUuid &uid) const;
    const SiteDevice *device(const QUuid &uid) const;
    const Model::UserInfo *user(const QString &login) const;
    const SiteDeviceType *deviceType(const QUrl &url) const;
    const SiteButton *button(const QUuid &uid) const;
    const SiteIndicator *indicator(const QUuid &uid) const;
    const SiteImage *image(const QUuid &uid) const;
    const Model::View3DItem *view3DItem(const QUuid &uid) const;
    const SiteBlueprint *blueprint(const QUuid &uid) const;
    const Model::ScheduleDay *day(const QUuid &uid) const;
    bool hasPower(const SiteDevice &device) const;
    // Set by the site's rules; an indicator without a rule has none.
    const std::vector<Model::IndicatorState> &indicatorStates() const { return m_indicatorStates; }
    qint64 storedFileBytes() const; // of pictures and meshes

    void rename(const QString &name) { m_data.name = name; }
    void setTimezone(const QString &timezone) { m_data.timezone = timezone; }
    // Added at the end when the key is not known, otherwise changed in place.
    void put(const Model::ShopPart &part);
    void put(const Model::Zone &zone);
    void put(const Model::DeviceDescriptor &descriptor); // a new one starts with its type's default state
    void put(const Model::UserInfo &user);
    void put(const Model::Button &button); // its state stays
    void put(const Model::Indicator &indicator); // its rule stays
    void put(const Model::ImageItem &item); // the picture stays when none comes with it
    void put(const Model::View3DItem &item); // the mesh stays when none comes with it
    void put(const Model::ActionBlueprint &blueprint);
    void put(const Model::ScheduleDay &day);
    void put(const Model::DevicePowerOnInfo &info);
    void setSettings(const Model::Settings &settings);

    // What stands in a removed plan or zone goes with it: removeParts() and removeZones() give all removed uids.
    // Whatever else referred to what is gone, such as a sequence to its zones, no longer does.
    QStringList removeParts(const QSet<QUuid> &uids);
    QStringList removeZones(const QSet<QUuid> &uids);
    QStringList removeDevices(const QSet<QUuid> &uids);
    void removeUsers(const QSet<QString> &logins);
    QStringList removeButtons(const QSet<QUuid> &uids);
    QStringList removeIndicators(const QSet<QUuid> &uids);
    QStringList removeImages(const QSet<QUuid> &uids);
    QStringList removeView3DItems(const QSet<QUuid> &uids);
    QStringList removeBlueprints(const QSet<QUuid> &uids);
    QStringList removeDays(const QSet<QUuid> &uids);

    void setState(const QUuid &uid, const QVariantMap &state);
    void setMode(const QUuid &uid, Model::DeviceMode::Mode mode);
    // Both act on the devices of those zones that can be told a power. Power is clamped to 0..100.
    void setZonesPower(const QSet<QUuid> &zones, double power);
    void setZonesMode(const QSet<QUuid> &zones, Model::DeviceMode::Mode mode);

    // A momentary button lets itself go again.
    void setButtonState(const QUuid &uid, Model::ButtonState::State state);
    void setIndicatorStates(const std::vector<Model::IndicatorState> &states);

    void note(const Model::LogEntry &entry); // into the journal

    void replace(const SiteData &data); // a restored backup
    void reset() { replace(m_initial); } // back to what the site was delivered with

signals:
    void changed(Demo::DemoSite::List list);
    void replaced();
    void noted(Model::LogEntry::Cause cause, const QString &username, const QString &action);

private:
    void index();
    void stampState(SiteDevice &device);
    void forgetZones(const QSet<QUuid> &uids);
    void forgetDevices(const QSet<QUuid> &uids);
    void forgetBlueprints(const QSet<QUuid> &uids);
    template <typename Change>
    void changeSequences(Change change); // calls change(sequence), which tells whether it changed it
    QStringList removeStandingOn(const QSet<QUuid> &parts);

    SiteData m_data;
    SiteData m_initial;
    QHash<QUuid, int> m_partRows;
    QHash<QUuid, int> m_zoneRows;
    QHash<QUuid, int> m_deviceRows;
    QHash<QUrl, int> m_typeRows;
    QHash<QUuid, int> m_buttonRows;
    QHash<QUuid, int> m_indicatorRows;
    QHash<QUuid, int> m_imageRows;
    QHash<QUuid, int> m_view3DRows;
    QHash<QUuid, int> m_blueprintRows;
    QHash<QUuid, int> m_dayRows;
    std::vector<Model::IndicatorState> m_indicatorStates;
    quint64 m_revision = 0;
};

} // namespace Demo
