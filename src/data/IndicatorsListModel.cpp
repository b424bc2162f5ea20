// SPDX-License-Identifier: GPL-3.0-or-later
#include "data/IndicatorsListModel.h"

#include "data/FreePlace.h"
#include "data/JsValues.h"
#include "data/ScriptFields.h"
#include "data/UsersListModel.h"
#include "link/AbstractBackendCommunicator.h"

#include <QColor>
#include <QJsonDocument>
#include <QSet>
#include <algorithm>

namespace {

// Colours come from the server: QColor's own constructor logs each that it cannot read.
QColor colorFrom(const QString &name)
{
    return QColor::isValidColor(name) ? QColor(name) : QColor();
}

} // namespace

IndicatorsListModel::IndicatorsListModel(AbstractBackendCommunicator &communicator, UsersListModel &users,
                                         QObject *parent)
    : UidKeyAbstractListModel(parent)
    , m_communicator(communicator)
    , m_users(users)
{
    auto &cache = communicator.getDataCache();
    connect(&cache, &BackendDataCache::indicatorsChanged, this, &IndicatorsListModel::onIndicatorsUpdated);
    connect(&cache, &BackendDataCache::indicatorStatesChanged, this, &IndicatorsListModel::onIndicatorStatesUpdated);
    connect(&cache, &BackendDataCache::devicesStatesChanged, this, &IndicatorsListModel::onDeviceStatesUpdated);
    connect(&communicator, &AbstractBackendCommunicator::statusChanged, this,
            &IndicatorsListModel::onBackendStatusChanged);
    // Users and indicators come in any order, so the rights that came last choose anew among the last list.
    connect(&users, &UsersListModel::currentUserChanged, this,
            [this] { onIndicatorsUpdated(m_communicator.getDataCache().getIndicators()); });
    onDeviceStatesUpdated(cache.getDeviceStates());
    onIndicatorStatesUpdated(cache.getIndicatorStates());
    onIndicatorsUpdated(cache.getIndicators());
}

int IndicatorsListModel::rowCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : m_items.size();
}

QVariant IndicatorsListModel::data(const QModelIndex &index, int role) const
{
    if (!holds(index))
        return {};
    const auto &item = m_items.at(index.row());
    const auto &indicator = item.indicator;
    switch (role) {
    case Uid: return indicator.uid.toString();
    case PartUid: return indicator.partUid;
    case IndicatorType: return indicator.indicatorType;
    case Visible: return item.state.opacity > 0.0;
    case Opacity: return item.state.opacity;
    case Label: return indicator.label;
    case Text: return textOf(item);
    case Icon: return item.state.icon.value_or(indicator.icon);
    case X: return indicator.position.x;
    case Y: return indicator.position.y;
    case Width: return indicator.width;
    case Height: return indicator.height;
    case TextColor: return colorFrom(item.state.textColor.value_or(indicator.textColor));
    case IconColor: return colorFrom(item.state.iconColor.value_or(indicator.iconColor));
    case ValueDevice: return indicator.displayValue ? indicator.displayValue->device.toString() : QVariant();
    case ValueProperty: return indicator.displayValue ? indicator.displayValue->property : QVariant();
    case Sort: return QString(indicator.partUid.toString() + ':' + indicator.label);
    case HorizontalAlignment: return indicator.horizontalAlignment;
    }
    return {};
}

QHash<int, QByteArray> IndicatorsListModel::roleNames() const
{
    static const QHash<int, QByteArray> names{
        {Uid, "uid"},
        {PartUid, "partUid"},
        {IndicatorType, "indicatorType"},
        {Visible, "visible"},
        {Opacity, "opacity"},
        {Label, "label"},
        {Text, "text"},
        {Icon, "icon"},
        {X, "x"},
        {Y, "y"},
        {Width, "width"},
        {Height, "height"},
        {TextColor, "textColor"},
        {IconColor, "iconColor"},
        {ValueDevice, "valueDevice"},
        {ValueProperty, "valueProperty"},
        {Sort, "sort"},
        {HorizontalAlignment, "horizontalAlignment"},
    };
    return names;
}

void IndicatorsListModel::addIndicator(const QJSValue &value, const QJSValue &callback)
{
    if (!value.isObject())
        return;
    const ScriptFields fields(value.toVariant());
    Model::Indicator indicator;
    indicator.label = tr("Индикатор");
    fields.take(QStringLiteral("partUid"), indicator.partUid);
    fields.take(QStringLiteral("width"), indicator.width);
    fields.take(QStringLiteral("height"), indicator.height);
    fields.take(QStringLiteral("textColor"), indicator.textColor);
    fields.take(QStringLiteral("iconColor"), indicator.iconColor);
    fields.take(QStringLiteral("horizontalAlignment"), indicator.horizontalAlignment);
    Model::Position given;
    const bool isPlaced = fields.take(QStringLiteral("x"), given.x) && fields.take(QStringLiteral("y"), given.y);
    indicator.position = isPlaced
        ? given
        : FreePlace::find(m_communicator.getDataCache().getIndicators(), indicator.partUid, indicator.width);
    m_communicator.addIndicators({indicator}, JsValues::uidsCompletion(this, callback));
}

void IndicatorsListModel::changeIndicator(const QVariant &value)
{
    const ScriptFields fields(value);
    const auto uid = fields.uid(QStringLiteral("uid"));
    const auto item =
        std::find_if(m_items.begin(), m_items.end(), [&](const auto &row) { return row.indicator.uid == uid; });
    if (item == m_items.end())
        return;
    auto indicator = item->indicator;
    fields.take(QStringLiteral("indicatorType"), indicator.indicatorType);
    fields.take(QStringLiteral("label"), indicator.label);
    fields.take(QStringLiteral("icon"), indicator.icon);
    fields.take(QStringLiteral("x"), indicator.position.x);
    fields.take(QStringLiteral("y"), indicator.position.y);
    fields.take(QStringLiteral("width"), indicator.width);
    fields.take(QStringLiteral("height"), indicator.height);
    fields.take(QStringLiteral("textColor"), indicator.textColor);
    fields.take(QStringLiteral("iconColor"), indicator.iconColor);
    fields.take(QStringLiteral("horizontalAlignment"), indicator.horizontalAlignment);
    if (fields.contains(QStringLiteral("valueDevice")) && fields.contains(QStringLiteral("valueProperty"))) {
        Model::Indicator::DisplayValue display;
        fields.take(QStringLiteral("valueDevice"), display.device);
        fields.take(QStringLiteral("valueProperty"), display.property);
        indicator.displayValue = boost::make_optional(!display.device.isNull(), display);
    }
    m_communicator.changeIndicators({indicator});
}

void IndicatorsListModel::removeIndicators(const QStringList &uids)
{
    std::vector<Model::Indicator> indicators;
    for (const auto &uid : uids) {
        Model::Indicator indicator;
        indicator.uid = QUuid(uid);
        if (!indicator.uid.isNull())
            indicators.push_back(indicator);
    }
    if (!indicators.empty())
        m_communicator.removeIndicators(indicators);
}

void IndicatorsListModel::onIndicatorsUpdated(const std::vector<Model::Indicator> &indicators)
{
    const auto user = m_users.getCurrentUser();
    std::vector<Item> items;
    items.reserve(indicators.size());
    for (const auto &indicator : indicators) {
        if (user.hasAccess(indicator.partUid))
            items.push_back({indicator, m_states.value(indicator.uid), valueOf(indicator)});
    }
    using Merge = DiffTransform<Rows<Item>, Item>;
    Merge(
        m_items, std::move(items), [](const auto &item) { return item.indicator.uid; }, *this)
        .transform();
}

void IndicatorsListModel::onIndicatorStatesUpdated(const std::vector<Model::IndicatorState> &states)
{
    for (const auto &state : states)
        m_states.insert(state.uid, state);
    for (int row = 0; row < m_items.size(); ++row) {
        auto &item = m_items.at(row);
        const auto latest = m_states.constFind(item.indicator.uid);
        if (latest == m_states.constEnd())
            continue;
        QVector<int> roles;
        if (latest->opacity != item.state.opacity)
            roles << Visible << Opacity;
        if (latest->text != item.state.text)
            roles << Text;
        if (latest->textColor != item.state.textColor)
            roles << TextColor;
        if (latest->icon != item.state.icon)
            roles << Icon;
        if (latest->iconColor != item.state.iconColor)
            roles << IconColor;
        if (roles.isEmpty())
            continue;
        item.state = *latest;
        announceRow(row, roles);
    }
}

void IndicatorsListModel::onDeviceStatesUpdated(const std::vector<Model::DeviceState> &states)
{
    QSet<QUuid> shown; // few indicators show a device, and the list of states is the longest that comes
    for (int row = 0; row < m_items.size(); ++row) {
        if (const auto &value = m_items.at(row).indicator.displayValue)
            shown.insert(value->device);
    }
    QSet<QUuid> changed;
    for (const auto &state : states) {
        m_deviceStates.insert(state.uid, state);
        if (shown.contains(state.uid))
            changed.insert(state.uid);
    }
    for (int row = 0; row < m_items.size(); ++row) {
        auto &item = m_items.at(row);
        if (!item.indicator.displayValue || !changed.contains(item.indicator.displayValue->device))
            continue;
        item.value = valueOf(item.indicator);
        announceRow(row, {Text});
    }
}

void IndicatorsListModel::onBackendStatusChanged()
{
    if (m_communicator.getStatus() != AbstractBackendCommunicator::Disconnected)
        return;
    m_deviceStates.clear();
    m_states.clear();
}

// What the rules say wins over the value of the device, and that over the label.
QString IndicatorsListModel::textOf(const Item &item)
{
    if (item.state.text)
        return *item.state.text;
    if (!item.indicator.displayValue || item.indicator.indicatorType != Model::Indicator::deviceValue)
        return item.indicator.label;
    const auto document = QJsonDocument::fromVariant(item.value);
    return document.isEmpty() ? item.value.toString() : QString::fromUtf8(document.toJson(QJsonDocument::Compact));
}

QVariant IndicatorsListModel::getValue(const QUuid &device, const QString &property) const
{
    const auto state = m_deviceStates.constFind(device);
    return state == m_deviceStates.constEnd() ? QVariant() : state->state.value(property);
}

QVariant IndicatorsListModel::valueOf(const Model::Indicator &indicator) const
{
    return indicator.displayValue ? getValue(indicator.displayValue->device, indicator.displayValue->property)
                                  : QVariant();
}

void IndicatorsListModel::announceRow(int row, const QVector<int> &roles)
{
    const auto place = index(row);
    emit dataChanged(place, place, roles);
}
