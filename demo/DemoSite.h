// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "demo/SiteData.h"

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
    enum class List { DeviceModes, DeviceStates, DeviceTypes, Devices, ShopParts, Users, Zones };
    Q_ENUM(List)

    explicit DemoSite(const SiteData &data, QObject *parent = nullptr);

    const SiteData &data() const { return m_data; }

    // Null for an unknown one. Valid until that list changes.
    const Model::ShopPart *part(const QUuid &uid) const;
    const SiteZone *zone(const QUuid &uid) const;
    const SiteDevice *device(const QUuid &uid) const;
    const Model::UserInfo *user(const QString &login) const;
    const SiteDeviceType *deviceType(const QUrl &url) const;
    bool hasPower(const SiteDevice &device) const;

    void rename(const QString &name) { m_data.name = name; }
    void setTimezone(const QString &timezone) { m_data.timezone = timezone; }
    // Added at the end when the key is not known, otherwise changed in place.
    void put(const Model::ShopPart &part);
    void put(const Model::Zone &zone);
    void put(const Model::DeviceDescriptor &descriptor); // a new one starts with its type's default state
    void put(const Model::UserInfo &user);

    // What stands in a removed plan or zone goes with it: removeParts() and removeZones() give all removed uids.
    QStringList removeParts(const QSet<QUuid> &uids);
    QStringList removeZones(const QSet<QUuid> &uids);
    QStringList removeDevices(const QSet<QUuid> &uids);
    void removeUsers(const QSet<QString> &logins);

    void setState(const QUuid &uid, const QVariantMap &state);
    void setMode(const QUuid &uid, Model::DeviceMode::Mode mode);
    // Both act on the devices of those zones that can be told a power. Power is clamped to 0..100.
    void setZonesPower(const QSet<QUuid> &zones, double power);
    void setZonesMode(const QSet<QUuid> &zones, Model::DeviceMode::Mode mode);

    void replace(const SiteData &data); // a restored backup
    void reset() { replace(m_initial); } // back to what the site was delivered with

signals:
    void changed(Demo::DemoSite::List list);
    void replaced();

private:
    void index();
    void stampState(SiteDevice &device);

    SiteData m_data;
    SiteData m_initial;
    QHash<QUuid, int> m_partRows;
    QHash<QUuid, int> m_zoneRows;
    QHash<QUuid, int> m_deviceRows;
    QHash<QUrl, int> m_typeRows;
    quint64 m_revision = 0;
};

} // namespace Demo
