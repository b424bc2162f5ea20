// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "data/Rows.h"
#include "data/UidKeyAbstractListModel.h"
#include "model/PlanObjects.h"

#include <QHash>
#include <QJSValue>
#include <QSet>
#include <QStringList>
#include <QTemporaryDir>
#include <QThreadPool>
#include <QUrl>

class AbstractBackendCommunicator;
class UsersListModel;

// The meshes in the three-dimensional views of the parts that the current user may see. Fetches each mesh into a
// temporary folder, which goes with the model, and tells where it lies. QML knows it as "view3DItemsListModel".
class View3DItemsListModel : public UidKeyAbstractListModel
{
    Q_OBJECT

public:
    enum Role {
        Uid = Qt::UserRole + 1,
        PartUid,
        Name,
        X,
        Y,
        Z,
        Position,
        ScaleX,
        ScaleY,
        ScaleZ,
        Scale,
        RotationX,
        RotationY,
        RotationZ,
        Rotation,
        Opacity,
        Locked,
        ModelUri,
        Ready
    };

    struct Item
    {
        Model::View3DItem record; // without its mesh
        QUrl modelUri; // empty until the file is there
        bool ready = false;
    };

    View3DItemsListModel(AbstractBackendCommunicator &communicator, UsersListModel &users, QObject *parent = nullptr);
    ~View3DItemsListModel() override;

    int rowCount(const QModelIndex &parent = {}) const override;
    QVariant data(const QModelIndex &index, int role) const override;
    QHash<int, QByteArray> roleNames() const override;

    // filePath: the URL of a local file; one that can't be opened, or is too large, is dropped. The callback gets the
    // array of new uids.
    Q_INVOKABLE void add(const QString &filePath, const QString &partUid, const QJSValue &callback = QJSValue());
    Q_INVOKABLE void change(const QString &uid, const QVariant &item);
    Q_INVOKABLE void remove(const QStringList &uids, const QJSValue &callback = QJSValue());

public slots:
    void onView3DItemsUpdated(const std::vector<Model::View3DItem> &items);
    void onView3DItemMeshReceived(const Model::View3DItem &item);

private:
    void onStatusChanged();
    void fetchMeshes();
    void fetchMesh(const QUuid &uid);
    void onMeshStored(const QUuid &uid, const QString &path);

    AbstractBackendCommunicator &m_communicator;
    UsersListModel &m_users;
    Rows<Item> m_items;
    QHash<QUuid, QUrl> m_meshes; // on hand, by item; also of rows that are gone and may come back
    QSet<QUuid> m_fetching; // asked for, or on the way to the disk
    int m_connection = 0; // counts the changes of the link: answers of an earlier one are not wanted
    bool m_writingFailed = false;
    QTemporaryDir m_folder;
    QThreadPool m_writer; // one thread; waits for its work before the folder goes
};
