// SPDX-License-Identifier: GPL-3.0-or-later
#include "data/RadioDevicesListModel.h"

#include "data/JsValues.h"
#include "link/AbstractBackendCommunicator.h"

#include <algorithm>

namespace {

// Calls with the list of the settings that holds the transports of that kind. False for a kind without a list.
template <typename Change>
bool withEntries(Model::Settings &settings, int deviceType, const Change &change)
{
    switch (deviceType) {
    case RadioDevicesListModel::MRF: return change(settings.mrf);
    case RadioDevicesListModel::LoRa: return change(settings.lora);
    case RadioDevicesListModel::RS485: return change(settings.rs485);
    default: return false;
    }
}

template <typename Entries>
bool hasEntry(const Entries &entries, int index)
{
    return index >= 0 && static_cast<std::size_t>(index) < entries.size();
}

} // namespace

RadioDevicesListModel::RadioDevicesListModel(AbstractBackendCommunicator &communicator, QObject *parent)
    : QAbstractListModel(parent)
    , m_communicator(communicator)
{
    using Link = AbstractBackendCommunicator;
    auto &cache = communicator.getDataCache();
    connect(&cache, &BackendDataCache::settingsChanged, this, &RadioDevicesListModel::onSettingsChanged);
    connect(&communicator, &Link::radioStatusReceived, this, &RadioDevicesListModel::onStatusChanged);
    connect(&communicator, &Link::availableComPortsReceived, this, &RadioDevicesListModel::onAvailablePortsChanged);
    onSettingsChanged(cache.getSettings());
}

int RadioDevicesListModel::rowCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : static_cast<int>(m_items.size());
}

QVariant RadioDevicesListModel::data(const QModelIndex &index, int role) const
{
    if (!index.isValid() || index.model() != this || index.row() >= rowCount())
        return {};
    const auto &item = m_items[static_cast<std::size_t>(index.row())];
    switch (role) {
    case DeviceTypeRole: return static_cast<int>(item.deviceType);
    case DeviceIndex: return item.deviceIndex;
    case Config: return item.config;
    case Working: return item.working;
    case LowQueueLatency: return item.lowQueueLatency;
    case MediumQueueLatency: return item.mediumQueueLatency;
    case HighQueueLatency: return item.highQueueLatency;
    case AverageLatency: return item.averageLatency;
    case MaximumLatency: return item.maximumLatency;
    case PrettyString: return prettyString(item);
    }
    return {};
}

QHash<int, QByteArray> RadioDevicesListModel::roleNames() const
{
    static const QHash<int, QByteArray> names{
        {DeviceTypeRole, "deviceType"},
        {DeviceIndex, "deviceIndex"},
        {Config, "config"},
        {Working, "working"},
        {LowQueueLatency, "lowQueueLatency"},
        {MediumQueueLatency, "mediumQueueLatency"},
        {HighQueueLatency, "highQueueLatency"},
        {AverageLatency, "averageLatency"},
        {MaximumLatency, "maximumLatency"},
        {PrettyString, "prettyString"},
    };
    return names;
}

Qt::ItemFlags RadioDevicesListModel::flags(const QModelIndex &index) const
{
    return index.isValid() ? Qt::ItemIsSelectable | Qt::ItemIsEnabled : Qt::NoItemFlags;
}

void RadioDevicesListModel::addDevice(int deviceType)
{
    auto settings = m_settings;
    const bool added = withEntries(settings, deviceType, [](auto &entries) {
        entries.emplace_back();
        return true;
    });
    if (added)
        m_communicator.setSettings(settings);
}

void RadioDevicesListModel::setDeviceConfig(int deviceType, int deviceIndex, const QVariant &config)
{
    const auto map = JsValues::plain(config);
    if (map.userType() != QMetaType::QVariantMap)
        return;
    auto settings = m_settings;
    const bool changed = withEntries(settings, deviceType, [&](auto &entries) {
        if (!hasEntry(entries, deviceIndex))
            return false;
        auto &entry = entries[static_cast<std::size_t>(deviceIndex)];
        entry = entry.fromVariant(map);
        return true;
    });
    if (changed)
        m_communicator.setSettings(settings);
}

void RadioDevicesListModel::removeDevice(int deviceType, int deviceIndex)
{
    auto settings = m_settings;
    const bool removed = withEntries(settings, deviceType, [&](auto &entries) {
        if (!hasEntry(entries, deviceIndex))
            return false;
        entries.erase(entries.begin() + deviceIndex);
        return true;
    });
    if (removed)
        m_communicator.setSettings(settings);
}

void RadioDevicesListModel::updateRadioStatus()
{
    m_communicator.getRadioStatus();
}

void RadioDevicesListModel::updateAvailablePorts()
{
    m_communicator.getAvailableComPorts();
}

int RadioDevicesListModel::indexForDevice(int deviceType, int deviceIndex) const
{
    const auto *const item = findItem(deviceType, deviceIndex);
    return item ? static_cast<int>(item - m_items.data()) : -1;
}

QVariantMap RadioDevicesListModel::get(int row) const
{
    const auto place = index(row);
    if (!place.isValid())
        return {};
    QVariantMap record;
    const auto names = roleNames();
    for (auto name = names.cbegin(); name != names.cend(); ++name)
        record.insert(QString::fromUtf8(name.value()), data(place, name.key()));
    return record;
}

void RadioDevicesListModel::onSettingsChanged(const Model::Settings &settings)
{
    std::vector<Item> items;
    items.reserve(settings.mrf.size() + settings.lora.size() + settings.rs485.size());
    appendItems(items, MRF, settings.mrf);
    appendItems(items, LoRa, settings.lora);
    appendItems(items, RS485, settings.rs485);
    m_settings = settings;
    beginResetModel();
    m_items = std::move(items);
    endResetModel();
    emit countChanged();
}

void RadioDevicesListModel::onStatusChanged(const std::vector<Model::RadioStatus> &status)
{
    static const QVector<int> roles{Working,          LowQueueLatency, MediumQueueLatency,
                                    HighQueueLatency, AverageLatency,  MaximumLatency};
    for (const auto &report : status) {
        const int row = indexForDevice(static_cast<int>(report.deviceType), report.deviceIndex);
        if (row < 0)
            continue;
        auto &item = m_items[static_cast<std::size_t>(row)];
        const quint64 low = report.lowQueueLatency; // in 64 bits: the sum of two may not fit in an unsigned int
        const quint64 normal = report.normalQueueLatency;
        const quint64 high = report.highQueueLatency;
        item.working = report.deviceOpen;
        item.lowQueueLatency = report.lowQueueLatency;
        item.mediumQueueLatency = report.normalQueueLatency;
        item.highQueueLatency = report.highQueueLatency;
        item.averageLatency = static_cast<unsigned int>((low + (normal + high) / 2) / 2);
        item.maximumLatency = static_cast<unsigned int>(std::max({low, normal, high}));
        const auto place = index(row);
        emit dataChanged(place, place, roles);
    }
}

void RadioDevicesListModel::onAvailablePortsChanged(const QStringList &ports)
{
    if (ports == m_availablePorts)
        return;
    m_availablePorts = ports;
    emit availableComPortsChanged();
}

// A transport that was there before keeps what was last reported of it.
template <typename Entry>
void RadioDevicesListModel::appendItems(std::vector<Item> &items, DeviceType type,
                                        const std::vector<Entry> &entries) const
{
    int position = 0;
    for (const auto &entry : entries) {
        const auto *const known = findItem(type, position);
        Item item = known ? *known : Item();
        item.deviceType = type;
        item.deviceIndex = position++;
        item.config = entry.toVariant().toMap();
        items.push_back(std::move(item));
    }
}

const RadioDevicesListModel::Item *RadioDevicesListModel::findItem(int deviceType, int deviceIndex) const
{
    const auto item = std::find_if(m_items.begin(), m_items.end(), [&](const auto &row) {
        return row.deviceType == deviceType && row.deviceIndex == deviceIndex;
    });
    return item == m_items.end() ? nullptr : &*item;
}

// All places of a text are filled by one call: the name of a port may look like a place marker.
QString RadioDevicesListModel::prettyString(const Item &item) const
{
    const auto value = [&](const char *key) { return item.config.value(QLatin1String(key)).toString(); };
    const auto number = QString::number(item.deviceIndex);
    switch (item.deviceType) {
    case MRF: return tr("MRF: %2 Ch: %3").arg(value("hostAddress"), value("hostChannel"));
    case LoRa: {
        const quint64 tenths = item.config.value(QStringLiteral("frequency")).toULongLong() / 100000; // of a megahertz
        return tr("LoRa %1: %2 F: %3 SF: %4")
            .arg(number, value("address"), QString::number(static_cast<double>(tenths) / 10), value("spreadingFactor"));
    }
    case RS485: {
        const auto port = value("portName");
        return tr("RS485 %1 (%2): %3 SPD: %4")
            .arg(number, port.isEmpty() ? tr("Выкл") : port, value("address"), value("speed"));
    }
    case None:
    case Network: break;
    }
    return {};
}
