// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "data/Rows.h"
#include "data/UidKeyAbstractListModel.h"
#include "model/PlanObjects.h"

#include <QJSValue>
#include <QStringList>

class AbstractBackendCommunicator;
class UsersListModel;

// The pictures on the plans of the parts that the current user may see, without the pictures themselves: those come
// from the image provider "image_layer". QML knows it as "imageItemsListModel".
class ImageItemsListModel : public UidKeyAbstractListModel
{
    Q_OBJECT

public:
    enum Role {
        Uid = Qt::UserRole + 1,
        PartUid,
        Name,
        X,
        Y,
        Width,
        Height,
        Opacity,
        CropX,
        CropY,
        CropWidth,
        CropHeight,
        OnTop,
        Locked
    };

    ImageItemsListModel(AbstractBackendCommunicator &communicator, UsersListModel &users, QObject *parent = nullptr);

    int rowCount(const QModelIndex &parent = {}) const override;
    QVariant data(const QModelIndex &index, int role) const override;
    QHash<int, QByteArray> roleNames() const override;

    // filePath: the URL of a local file. A file that can't be read is sent as an empty picture, which the server
    // answers with an error. The callback gets the array of new uids.
    Q_INVOKABLE void add(const QString &filePath, const QString &partUid, double x, double y,
                         const QJSValue &callback = QJSValue());
    Q_INVOKABLE void change(const QString &uid, const QVariant &item);
    Q_INVOKABLE void remove(const QStringList &uids, const QJSValue &callback = QJSValue());

public slots:
    void onImageItemsReceived(const std::vector<Model::ImageItem> &items);

private:
    AbstractBackendCommunicator &m_communicator;
    UsersListModel &m_users;
    Rows<Model::ImageItem> m_items;
};
