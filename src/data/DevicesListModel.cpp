// SPDX-License-Identifier: GPL-3.0-or-later
#include "data/DevicesListModel.h"

#include "data/DeviceTexts.h"
#include "data/JsValues.h"
#include "link/AbstractBackendCommunicator.h"
#include "model/VariantReading.h"

#include <QSet>
#include <limits>

namespace {

using RadioDeviceType = Model::RadioStatus::DeviceType;

Model::DeviceDescriptor emptyDescriptor()
{
    Model::DeviceDescriptor descriptor;
    descriptor.radioIndex = -1;
    return descriptor;
}

// Only what the object has is read: a form may send a part of the record.
Model::DeviceDescriptor descriptorFromJSVal(const QJSValue &value)
{
    auto descriptor = emptyDescriptor();
    const auto has = [&](const char *key) { return value.hasProperty(QLatin1String(key)); };
    const auto get = [&](const char *key) { return value.property(QLatin1String(key)); };
    if (has("uid"))
        descriptor.uid = QUuid(get("uid").toString());
    if (has("url"))
        descriptor.url = QUrl(get("url").toString());
    if (has("address"))
        descriptor.address = get("address").toInt();
    if (has("version"))
        descriptor.version = get("version").toInt();
    if (has("data"))
        descriptor.data = get("data").toVariant().toMap();
    if (has("zoneUid"))
        descriptor.zoneUid = QUuid(get("zoneUid").toString());
    if (has("radioType"))
        descriptor.radioType = static_cast<RadioDeviceType>(get("radioType").toInt());
    if (has("radioIndex"))
        descriptor.radioIndex = get("radioIndex").toInt();
    return descriptor;
}

std::vector<Model::DeviceDescriptor> descriptorsFromJSVal(const QJSValue &value)
{
    std::vector<Model::DeviceDescriptor> descriptors;
    if (!value.isArray())
        return descriptors;
    const quint32 length = value.property(QStringLiteral("length")).toUInt();
    for (quint32 i = 0; i < length; ++i) {
        const auto element = value.property(i);
        if (element.isObject())
            descriptors.push_back(descriptorFromJSVal(element));
    }
    return descriptors;
}

// Truncated toward zero; hours beyond an int read as its end.
int wholeHours(double hours)
{
    constexpr long long least = std::numeric_limits<int>::min();
    constexpr long long largest = std::numeric_limits<int>::max();
    return static_cast<int>(qBound(least, Model::saturated(hours), largest));
}

QSet<QUuid> uidSet(const QStringList &texts)
{
    QSet<QUuid> uids;
    for (const auto &text : texts)
        uids.insert(QUuid(text));
    return uids;
}

} // namespace

DevicesListModel::DevicesListModel(AbstractBackendCommunicator &communicator, QObject *parent)
    : UidKeyAbstractListModel(parent)
    , m_communicator(communicator)
{
    auto &cache = communicator.getDataCache();
    connect(&cache, &BackendDataCache::devicesTypesChanged, this, &DevicesListModel::onDeviceTypesUpdated);
    connect(&cache, &BackendDataCache::devicesStatesChanged, this, &DevicesListModel::onDeviceStatesUpdated);
    connect(&cache, &BackendDataCache::devicesModesChanged, this, &DevicesListModel::onDeviceModesUpdated);
    connect(&cache, &BackendDataCache::settingsChanged, this, &DevicesListModel::onSettingsUpdated);
    connect(&cache, &BackendDataCache::powerOnStatisticsChanged, this, &DevicesListModel::onDevicePowerOnInfoUpdated);
    connect(&cache, &BackendDataCache::devicesChanged, this, &DevicesListModel::onDevicesUpdated);
    connect(&communicator, &AbstractBackendCommunicator::statusChanged, this,
            [this] { onBackendConnectionStatusChanged(m_communicator.getStatus()); });
    onDeviceTypesUpdated(cache.getDeviceTypes());
    onDeviceStatesUpdated(cache.getDeviceStates());
    onDeviceModesUpdated(cache.getDeviceModes());
    onSettingsUpdated(cache.getSettings());
    onDevicePowerOnInfoUpdated(cache.getPowerOnStatistics());
    onDevicesUpdated(cache.getDeviceDescriptors());
}

int DevicesListModel::rowCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : m_items.size();
}

QVariant DevicesListModel::data(const QModelIndex &index, int role) const
{
    if (!holds(index))
        return false; // not an invalid value as in the other models: conditions in QML rely on it
    const auto &item = m_items.at(index.row());
    const auto &descriptor = item.descriptor;
    switch (role) {
    case Uid: return descriptor.uid.toString();
    case Address: return descriptor.address;
    case Url: return descriptor.url;
    case Version: return descriptor.version;
    case Data: return descriptor.data;
    case State: return item.state.state;
    case TypeInfo: return typeOf(descriptor).toVariant();
    case Mode:
        return item.mode.mode == Model::DeviceMode::Mode::Manual ? QStringLiteral("manual") : QStringLiteral("auto");
    case PrettyString: return item.prettyString;
    case Sort: return item.sortString;
    case ZoneUid: return descriptor.zoneUid;
    case CommonType: return typeOf(descriptor).commonType;
    case RadioType: return static_cast<int>(descriptor.radioType);
    case RadioIndex: return descriptor.radioIndex;
    case IsRadioValid: return item.isRadioValid;
    case RadioString: return DeviceTexts::getRadioString(descriptor, m_settings);
    case PowerOnHours: return wholeHours(item.powerOnInfo.powerOnHours);
    }
    return {};
}

QHash<int, QByteArray> DevicesListModel::roleNames() const
{
    static const QHash<int, QByteArray> names{
        {Uid, "uid"},
        {Address, "address"},
        {Url, "url"},
        {Version, "version"},
        {Data, "data"},
        {State, "state"},
        {TypeInfo, "typeInfo"},
        {Mode, "mode"},
        {PrettyString, "prettyString"},
        {Sort, "sort"},
        {ZoneUid, "zoneUid"},
        {CommonType, "commonType"},
        {RadioType, "radioType"},
        {RadioIndex, "radioIndex"},
        {IsRadioValid, "isRadioValid"},
        {RadioString, "radioString"},
        {PowerOnHours, "powerOnHours"},
    };
    return names;
}

void DevicesListModel::addDevice(const QJSValue &value, const QJSValue &callback)
{
    const auto descriptors = descriptorsFromJSVal(value);
    if (!descriptors.empty())
        m_communicator.addDevices(descriptors, JsValues::uidsCompletion(this, callback));
}

void DevicesListModel::changeDevice(const QJSValue &value)
{
    const auto descriptors = descriptorsFromJSVal(value);
    if (!descriptors.empty())
        m_communicator.changeDevices(descriptors);
}

void DevicesListModel::removeDevices(const QStringList &uids)
{
    std::vector<Model::DeviceDescriptor> descriptors;
    for (const auto &uid : uids) {
        auto descriptor = emptyDescriptor();
        descriptor.uid = QUuid(uid);
        if (!descriptor.uid.isNull())
            descriptors.push_back(descriptor);
    }
    if (!descriptors.empty())
        m_communicator.removeDevices(descriptors);
}

QStringList DevicesListModel::zonesToDevices(const QStringList &zoneUids) const
{
    const auto zones = uidSet(zoneUids);
    QStringList devices;
    for (const auto &item : m_items) {
        if (zones.contains(item.descriptor.zoneUid))
            devices.append(item.descriptor.uid.toString());
    }
    return devices;
}

QStringList DevicesListModel::devicesToZones(const QStringList &deviceUids) const
{
    const auto devices = uidSet(deviceUids);
    QSet<QUuid> seen;
    QStringList zones;
    for (const auto &item : m_items) {
        const auto &zone = item.descriptor.zoneUid;
        if (!devices.contains(item.descriptor.uid) || seen.contains(zone))
            continue;
        seen.insert(zone);
        zones.append(zone.toString());
    }
    return zones;
}

std::vector<Model::DeviceMode> DevicesListModel::getDeviceModes(const QUuid &zoneUid) const
{
    std::vector<Model::DeviceMode> modes;
    for (const auto &item : m_items) {
        if (zoneUid.isNull() || item.descriptor.zoneUid == zoneUid)
            modes.push_back(item.mode);
    }
    return modes;
}

std::vector<Model::DeviceState> DevicesListModel::getDeviceStates(const QUuid &zoneUid) const
{
    std::vector<Model::DeviceState> states;
    for (const auto &item : m_items) {
        if (zoneUid.isNull() || item.descriptor.zoneUid == zoneUid)
            states.push_back(item.state);
    }
    return states;
}

Model::DeviceTypeInfo DevicesListModel::getTypeInfoForDevice(const QUuid &uid) const
{
    const auto item =
        std::find_if(m_items.begin(), m_items.end(), [&](const auto &row) { return row.descriptor.uid == uid; });
    return item == m_items.end() ? Model::DeviceTypeInfo::fallback() : typeOf(item->descriptor);
}

void DevicesListModel::onDevicesUpdated(const std::vector<Model::DeviceDescriptor> &descriptors)
{
    // States, modes and type maps have announcements of their own.
    static const QVector<int> roles{Uid,        Address,      Url,         Version,     Data,
                                    Sort,       PrettyString, ZoneUid,     CommonType,  RadioType,
                                    RadioIndex, IsRadioValid, RadioString, PowerOnHours};
    std::vector<Item> items;
    items.reserve(descriptors.size());
    for (const auto &descriptor : descriptors)
        items.push_back(itemOf(descriptor));

    using Merge = DiffTransform<Rows<Item>, Item>;
    Merge merge(
        m_items, std::move(items), [](const auto &item) { return item.descriptor.uid; }, *this);
    merge.dataChanged = [this](const Range &range) {
        emit dataChanged(index(range.first), index(range.first + range.count - 1), roles);
    };
    merge.transform();
    emit devicesUpdated(descriptors);
}

void DevicesListModel::onDeviceStatesUpdated(const std::vector<Model::DeviceState> &states)
{
    // The hot road: thousands of states each second. Rows that the message does not name are not announced.
    static const QVector<int> roles{State};
    UidIndex incoming(states.size());
    for (std::size_t i = 0; i < states.size(); ++i)
        incoming.insertLast(states[i].uid, static_cast<int>(i));
    for (int row = 0; row < m_items.size(); ++row) {
        auto &item = m_items.at(row);
        const int position = incoming.find(item.descriptor.uid);
        if (position < 0)
            continue;
        item.state = states[static_cast<std::size_t>(position)];
        const auto place = index(row);
        emit dataChanged(place, place, roles);
    }
    for (const auto &state : states)
        m_states[state.uid] = state;
    emit deviceStatesUpdated(states);
}

void DevicesListModel::onDeviceModesUpdated(const std::vector<Model::DeviceMode> &modes)
{
    static const QVector<int> roles{Mode};
    UidIndex incoming(modes.size());
    for (std::size_t i = 0; i < modes.size(); ++i)
        incoming.insertLast(modes[i].uid, static_cast<int>(i));
    for (int row = 0; row < m_items.size(); ++row) {
        auto &item = m_items.at(row);
        const int position = incoming.find(item.descriptor.uid);
        if (position < 0)
            continue;
        item.mode = modes[static_cast<std::size_t>(position)];
        const auto place = index(row);
        emit dataChanged(place, place, roles);
    }
    for (const auto &mode : modes)
        m_modes[mode.uid] = mode;
    emit deviceModesUpdated();
}

void DevicesListModel::onDeviceTypesUpdated(const std::vector<Model::DeviceTypeInfo> &types)
{
    for (const auto &type : types)
        m_types.insert(type.url, type);
    for (auto &item : m_items) {
        const auto &type = typeOf(item.descriptor);
        item.sortString = DeviceTexts::getSortString(item.descriptor, type);
        item.prettyString = DeviceTexts::devicePrettyPrint(item.descriptor, type);
    }
    emit deviceTypesUpdated();
    announceAll({TypeInfo, PrettyString, Sort, CommonType});
}

void DevicesListModel::onSettingsUpdated(const Model::Settings &settings)
{
    static const QVector<int> roles{IsRadioValid};
    m_settings = settings;
    for (int row = 0; row < m_items.size(); ++row) {
        auto &item = m_items.at(row);
        const bool valid = checkRadioValidity(item.descriptor);
        if (valid == item.isRadioValid)
            continue;
        item.isRadioValid = valid;
        const auto place = index(row);
        emit dataChanged(place, place, roles);
    }
    announceAll({RadioString}); // its suffix depends on the number of radios
}

void DevicesListModel::onDevicePowerOnInfoUpdated(const std::vector<Model::DevicePowerOnInfo> &infos)
{
    for (const auto &info : infos)
        m_powerOnInfos.insert(info.uid, info);
    for (auto &item : m_items)
        item.powerOnInfo = m_powerOnInfos.value(item.descriptor.uid);
    announceAll({PowerOnHours});
}

// A fresh connection: nothing old may be joined to what the new server sends. Rows stay until its list comes.
void DevicesListModel::onBackendConnectionStatusChanged(int status)
{
    if (status != AbstractBackendCommunicator::Connecting)
        return;
    m_states.clear();
    m_modes.clear();
    m_powerOnInfos.clear();
}

const Model::DeviceTypeInfo &DevicesListModel::typeOf(const Model::DeviceDescriptor &descriptor) const
{
    const auto type = m_types.constFind(descriptor.url);
    return type == m_types.constEnd() ? Model::DeviceTypeInfo::fallback() : *type;
}

// Whether the settings have the radio that the device names.
bool DevicesListModel::checkRadioValidity(const Model::DeviceDescriptor &descriptor) const
{
    const auto isBelow = [&](std::size_t count) {
        return descriptor.radioIndex >= 0 && static_cast<std::size_t>(descriptor.radioIndex) < count;
    };
    switch (descriptor.radioType) {
    case RadioDeviceType::Mrf: return isBelow(m_settings.mrf.size());
    case RadioDeviceType::LoRa: return isBelow(m_settings.lora.size());
    case RadioDeviceType::Rs485: return isBelow(m_settings.rs485.size());
    case RadioDeviceType::None:
    case RadioDeviceType::Network: break;
    }
    return false;
}

DevicesListModel::Item DevicesListModel::itemOf(const Model::DeviceDescriptor &descriptor) const
{
    const auto &type = typeOf(descriptor);
    const auto state = m_states.find(descriptor.uid);
    const auto mode = m_modes.find(descriptor.uid);
    Item item;
    item.descriptor = descriptor;
    item.state = state == m_states.end() ? Model::DeviceState{descriptor.uid, {}} : state->second;
    item.mode =
        mode == m_modes.end() ? Model::DeviceMode{descriptor.uid, Model::DeviceMode::Mode::Automatic} : mode->second;
    item.powerOnInfo = m_powerOnInfos.value(descriptor.uid);
    item.isRadioValid = checkRadioValidity(descriptor);
    item.sortString = DeviceTexts::getSortString(descriptor, type);
    item.prettyString = DeviceTexts::devicePrettyPrint(descriptor, type);
    return item;
}

void DevicesListModel::announceAll(const QVector<int> &roles)
{
    if (!m_items.empty())
        emit dataChanged(index(0), index(rowCount() - 1), roles);
}
