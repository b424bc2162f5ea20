// SPDX-License-Identifier: GPL-3.0-or-later
#include "data/DeviceTypesListModel.h"

#include "link/AbstractBackendCommunicator.h"

#include <algorithm>

namespace {

// What a form needs to build the field of one parameter.
QVariantList parameterMaps(const std::vector<Model::DeviceTypeInfo::Parameter> &parameters)
{
    using Parameter = Model::DeviceTypeInfo::Parameter;
    QVariantList maps;
    for (const auto &parameter : parameters) {
        maps.append(QVariantMap{{QStringLiteral("identificator"), parameter.identificator},
                                {QStringLiteral("description"), parameter.description},
                                {QStringLiteral("access"), Parameter::accessToString(parameter.access)},
                                {QStringLiteral("definition"), parameter.limits.toVariant()},
                                {QStringLiteral("defaultValue"), parameter.defaultValue.valueToVariant()}});
    }
    return maps;
}

} // namespace

DeviceTypesListModel::DeviceTypesListModel(AbstractBackendCommunicator &communicator, QObject *parent)
    : QAbstractListModel(parent)
{
    auto &cache = communicator.getDataCache();
    connect(&cache, &BackendDataCache::devicesTypesChanged, this, &DeviceTypesListModel::onDeviceTypesUpdated);
    onDeviceTypesUpdated(cache.getDeviceTypes());
}

int DeviceTypesListModel::rowCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : static_cast<int>(m_types.size());
}

QVariant DeviceTypesListModel::data(const QModelIndex &index, int role) const
{
    if (!index.isValid() || index.model() != this || index.row() >= rowCount())
        return {};
    const auto &type = m_types[static_cast<std::size_t>(index.row())];
    switch (role) {
    case Url: return type.url;
    case Version: return type.version;
    case Name: return type.name;
    case Description: return type.description;
    case Tags: return type.tags;
    case CommonType: return type.commonType;
    case Parameters: return parameterMaps(type.parameters);
    case Statistics: return type.statistics.toVariant();
    case UniqueAddress: return type.uniqueAddress;
    case CustomAddress: return type.customAddress;
    case SortOrder: return type.sortOrder;
    }
    return {};
}

QHash<int, QByteArray> DeviceTypesListModel::roleNames() const
{
    static const QHash<int, QByteArray> names{
        {Url, "url"},
        {Version, "version"},
        {Name, "name"},
        {Description, "description"},
        {Tags, "tags"},
        {CommonType, "commonType"},
        {Parameters, "parameters"},
        {Statistics, "statistics"},
        {UniqueAddress, "uniqueAddress"},
        {CustomAddress, "customAddress"},
        {SortOrder, "sortOrder"},
    };
    return names;
}

QVariant DeviceTypesListModel::getByUrl(const QUrl &url) const
{
    QVariantMap record;
    const auto type = std::find_if(m_types.begin(), m_types.end(), [&](const auto &row) { return row.url == url; });
    if (type != m_types.end()) {
        const auto place = index(static_cast<int>(type - m_types.begin()));
        const auto names = roleNames();
        for (auto name = names.cbegin(); name != names.cend(); ++name)
            record.insert(QString::fromUtf8(name.value()), data(place, name.key()));
    }
    return record;
}

void DeviceTypesListModel::onDeviceTypesUpdated(const std::vector<Model::DeviceTypeInfo> &types)
{
    beginResetModel();
    m_types = types;
    std::stable_sort(m_types.begin(), m_types.end(),
                     [](const auto &left, const auto &right) { return left.sortOrder < right.sortOrder; });
    endResetModel();
}
