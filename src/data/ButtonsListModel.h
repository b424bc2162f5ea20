// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "data/Rows.h"
#include "data/UidKeyAbstractListModel.h"
#include "model/PlanObjects.h"
#include "model/Site.h"

#include <QHash>
#include <QJSValue>
#include <QStringList>

class AbstractBackendCommunicator;
class UsersListModel;

// The buttons of the parts that the current user may see, each with its state and the name of its part. QML knows it
// as "buttonsListModel".
class ButtonsListModel : public UidKeyAbstractListModel
{
    Q_OBJECT

public:
    enum Role {
        Uid = Qt::UserRole + 1,
        Name,
        Toggle,
        AffectedZonesNames,
        X,
        Y,
        Height,
        Width,
        State,
        OnColor,
        OffColor,
        Actions,
        PartUid,
        PartName,
        Sort
    };

    struct ButtonItem
    {
        Model::Button button;
        Model::ButtonState state;
        QStringList affectedZonesNames; // always empty
        QVariant actions;
        QString partUid;
        QString partName;
    };

    ButtonsListModel(AbstractBackendCommunicator &communicator, UsersListModel &users, QObject *parent = nullptr);

    int rowCount(const QModelIndex &parent = {}) const override;
    QVariant data(const QModelIndex &index, int role) const override;
    QHash<int, QByteArray> roleNames() const override;

    // value: an object with "width", "height", "partUid", "onColor", "offColor", and "x" and "y", without which a free
    // place is found. The callback gets the array of new uids. The row comes with the next list.
    Q_INVOKABLE void addButton(const QJSValue &value, const QJSValue &callback = QJSValue());
    // value: an object with "uid", and any of "name", "toggle", "onColor", "offColor" and "actions".
    Q_INVOKABLE void changeButton(const QVariant &value);
    Q_INVOKABLE void changeButtonGeometry(const QString &uid, double x, double y, double width, double height);
    Q_INVOKABLE void setButtonState(const QString &uid, int state);
    Q_INVOKABLE void removeButtons(const QStringList &uids);

public slots:
    void onButtonsReceived(const std::vector<Model::Button> &buttons);
    void onButtonStatesListReceived(const std::vector<Model::ButtonState> &states);
    void onPartsReceived(const std::vector<Model::ShopPart> &parts);

private:
    const ButtonItem *itemOf(const QUuid &uid) const;

    AbstractBackendCommunicator &m_communicator;
    UsersListModel &m_users;
    Rows<ButtonItem> m_items;
    QHash<QUuid, Model::ButtonState> m_states; // by button
    QHash<QUuid, Model::ShopPart> m_parts;
};
