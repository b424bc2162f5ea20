// SPDX-License-Identifier: GPL-3.0-or-later
#include "data/ButtonsListModel.h"

#include "data/FreePlace.h"
#include "data/JsValues.h"
#include "data/ScriptFields.h"
#include "data/UsersListModel.h"
#include "link/AbstractBackendCommunicator.h"

#include <QtNumeric>
#include <algorithm>

ButtonsListModel::ButtonsListModel(AbstractBackendCommunicator &communicator, UsersListModel &users, QObject *parent)
    : UidKeyAbstractListModel(parent)
    , m_communicator(communicator)
    , m_users(users)
{
    auto &cache = communicator.getDataCache();
    connect(&cache, &BackendDataCache::buttonsChanged, this, &ButtonsListModel::onButtonsReceived);
    connect(&cache, &BackendDataCache::buttonStatesChanged, this, &ButtonsListModel::onButtonStatesListReceived);
    connect(&cache, &BackendDataCache::shopPartsChanged, this, &ButtonsListModel::onPartsReceived);
    // Users and buttons come in any order, so the rights that came last choose anew among the last list.
    connect(&users, &UsersListModel::currentUserChanged, this,
            [this] { onButtonsReceived(m_communicator.getDataCache().getButtons()); });
    onButtonStatesListReceived(cache.getButtonStates());
    onPartsReceived(cache.getShopParts());
}

int ButtonsListModel::rowCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : m_items.size();
}

QVariant ButtonsListModel::data(const QModelIndex &index, int role) const
{
    if (!holds(index))
        return {};
    const auto &item = m_items.at(index.row());
    switch (role) {
    case Uid: return item.button.uid.toString();
    case Name: return item.button.name;
    case Toggle: return item.button.toggle;
    case AffectedZonesNames: return item.affectedZonesNames;
    case X: return item.button.position.x;
    case Y: return item.button.position.y;
    case Height: return item.button.height;
    case Width: return item.button.width;
    case State: return static_cast<int>(item.state.state);
    case OnColor: return item.button.onColor;
    case OffColor: return item.button.offColor;
    case Actions: return item.actions;
    case PartUid: return item.partUid;
    case PartName: return item.partName;
    case Sort: return QString(item.partName + item.partUid + item.button.name);
    }
    return {};
}

QHash<int, QByteArray> ButtonsListModel::roleNames() const
{
    static const QHash<int, QByteArray> names{
        {Uid, "uid"},
        {Name, "name"},
        {Toggle, "toggle"},
        {AffectedZonesNames, "affectedZonesNames"},
        {X, "x"},
        {Y, "y"},
        {Height, "height"},
        {Width, "width"},
        {State, "state"},
        {OnColor, "onColor"},
        {OffColor, "offColor"},
        {Actions, "actions"},
        {PartUid, "partUid"},
        {PartName, "partName"},
        {Sort, "sort"},
    };
    return names;
}

void ButtonsListModel::addButton(const QJSValue &value, const QJSValue &callback)
{
    if (!value.isObject())
        return;
    const ScriptFields fields(value.toVariant());
    Model::Button button;
    button.name = tr("Кнопка");
    fields.take(QStringLiteral("partUid"), button.partUid);
    fields.take(QStringLiteral("width"), button.width);
    fields.take(QStringLiteral("height"), button.height);
    fields.take(QStringLiteral("onColor"), button.onColor);
    fields.take(QStringLiteral("offColor"), button.offColor);
    Model::Position given;
    const bool isPlaced = fields.take(QStringLiteral("x"), given.x) && fields.take(QStringLiteral("y"), given.y);
    button.position =
        isPlaced ? given : FreePlace::find(m_communicator.getDataCache().getButtons(), button.partUid, button.width);
    m_communicator.addButtons({button}, JsValues::uidsCompletion(this, callback));
}

void ButtonsListModel::changeButton(const QVariant &value)
{
    const ScriptFields fields(value);
    const auto *const item = itemOf(fields.uid(QStringLiteral("uid")));
    if (!item)
        return;
    auto button = item->button;
    fields.take(QStringLiteral("name"), button.name);
    fields.take(QStringLiteral("toggle"), button.toggle);
    fields.take(QStringLiteral("onColor"), button.onColor);
    fields.take(QStringLiteral("offColor"), button.offColor);
    if (fields.contains(QStringLiteral("actions")))
        button.blueprints = Model::ActionSequence::fromVariant(fields.value(QStringLiteral("actions")));
    m_communicator.changeButtons({button});
}

void ButtonsListModel::changeButtonGeometry(const QString &uid, double x, double y, double width, double height)
{
    const auto *const item = itemOf(QUuid(uid));
    if (!item || !qIsFinite(x) || !qIsFinite(y) || !qIsFinite(width) || !qIsFinite(height))
        return;
    auto button = item->button;
    button.position = {x, y};
    button.width = width;
    button.height = height;
    m_communicator.changeButtons({button});
}

void ButtonsListModel::setButtonState(const QString &uid, int state)
{
    Model::ButtonState record;
    record.uid = QUuid(uid);
    if (record.uid.isNull())
        return;
    record.state = state == 0 ? Model::ButtonState::State::Off : Model::ButtonState::State::On;
    m_communicator.setButtonStates({record});
}

void ButtonsListModel::removeButtons(const QStringList &uids)
{
    std::vector<Model::Button> buttons;
    for (const auto &uid : uids) {
        Model::Button button;
        button.uid = QUuid(uid);
        if (!button.uid.isNull())
            buttons.push_back(button);
    }
    if (!buttons.empty())
        m_communicator.removeButtons(buttons);
}

void ButtonsListModel::onButtonsReceived(const std::vector<Model::Button> &buttons)
{
    const auto user = m_users.getCurrentUser();
    std::vector<ButtonItem> items;
    items.reserve(buttons.size());
    for (const auto &button : buttons) {
        if (!user.hasAccess(button.partUid))
            continue;
        ButtonItem item;
        item.button = button;
        item.state = m_states.value(button.uid, {button.uid, Model::ButtonState::State::Off});
        item.actions = button.blueprints.toVariant();
        item.partUid = button.partUid.toString();
        const auto part = m_parts.constFind(button.partUid);
        if (part != m_parts.constEnd())
            item.partName = part->name;
        items.push_back(std::move(item));
    }
    using Merge = DiffTransform<Rows<ButtonItem>, ButtonItem>;
    Merge(
        m_items, std::move(items), [](const auto &item) { return item.button.uid; }, *this)
        .transform();
}

void ButtonsListModel::onButtonStatesListReceived(const std::vector<Model::ButtonState> &states)
{
    m_states.clear();
    for (const auto &state : states)
        m_states.insert(state.uid, state);
    if (m_items.empty())
        return;
    for (auto &item : m_items)
        item.state = m_states.value(item.button.uid, {item.button.uid, Model::ButtonState::State::Off});
    emit dataChanged(index(0), index(rowCount() - 1), {State});
}

void ButtonsListModel::onPartsReceived(const std::vector<Model::ShopPart> &parts)
{
    m_parts.clear();
    for (const auto &part : parts)
        m_parts.insert(part.uid, part);
    onButtonsReceived(m_communicator.getDataCache().getButtons());
}

const ButtonsListModel::ButtonItem *ButtonsListModel::itemOf(const QUuid &uid) const
{
    const auto item =
        std::find_if(m_items.begin(), m_items.end(), [&](const auto &row) { return row.button.uid == uid; });
    return item == m_items.end() ? nullptr : &*item;
}
