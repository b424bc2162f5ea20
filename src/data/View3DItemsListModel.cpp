// SPDX-License-Identifier: GPL-3.0-or-later
#include "data/View3DItemsListModel.h"

#include "data/JsValues.h"
#include "data/ScriptFields.h"
#include "data/UsersListModel.h"
#include "link/AbstractBackendCommunicator.h"

#include <QCryptographicHash>
#include <QFile>
#include <QFileInfo>
#include <QFutureWatcher>
#include <QLoggingCategory>
#include <QPointer>
#include <QSaveFile>
#include <QVector3D>
#include <QtConcurrent>
#include <algorithm>

namespace {

Q_LOGGING_CATEGORY(meshes, "ondira.meshes")

// A mesh travels in one message, and the link takes none that is larger.
constexpr qint64 maxMeshSize = 256LL * 1024 * 1024;

QVector3D vectorFrom(double x, double y, double z)
{
    return {static_cast<float>(x), static_cast<float>(y), static_cast<float>(z)};
}

// The path of the mesh, by its content, so that equal meshes share one file and no name of the server's reaches the
// file system; empty if it can't be written. A file appears whole or not at all.
QString storeMesh(const QTemporaryDir &folder, const QByteArray &mesh)
{
    if (!folder.isValid())
        return {};
    const auto name = QCryptographicHash::hash(mesh, QCryptographicHash::Sha1).toHex();
    const auto path = folder.filePath(QString::fromLatin1(name));
    if (QFileInfo::exists(path))
        return path;
    QSaveFile file(path);
    const bool isWritten = file.open(QIODevice::WriteOnly) && file.write(mesh) == mesh.size() && file.commit();
    return isWritten ? path : QString();
}

} // namespace

View3DItemsListModel::View3DItemsListModel(AbstractBackendCommunicator &communicator, UsersListModel &users,
                                           QObject *parent)
    : UidKeyAbstractListModel(parent)
    , m_communicator(communicator)
    , m_users(users)
{
    m_writer.setMaxThreadCount(1); // no two write one file at once
    auto &cache = communicator.getDataCache();
    connect(&cache, &BackendDataCache::view3DItemsChanged, this, &View3DItemsListModel::onView3DItemsUpdated);
    connect(&communicator, &AbstractBackendCommunicator::statusChanged, this, &View3DItemsListModel::onStatusChanged);
    // Users and items come in any order, so the rights that came last choose anew among the last list.
    connect(&users, &UsersListModel::currentUserChanged, this,
            [this] { onView3DItemsUpdated(m_communicator.getDataCache().getView3DItems()); });
    onView3DItemsUpdated(cache.getView3DItems());
}

View3DItemsListModel::~View3DItemsListModel()
{
    m_writer.clear();
}

int View3DItemsListModel::rowCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : m_items.size();
}

QVariant View3DItemsListModel::data(const QModelIndex &index, int role) const
{
    if (!holds(index))
        return {};
    const auto &item = m_items.at(index.row());
    const auto &record = item.record;
    switch (role) {
    case Uid: return record.uid.toString();
    case PartUid: return record.partUid.toString();
    case Name: return record.name;
    case X: return record.x;
    case Y: return record.y;
    case Z: return record.z;
    case Position: return vectorFrom(record.x, record.y, record.z);
    case ScaleX: return record.scaleX;
    case ScaleY: return record.scaleY;
    case ScaleZ: return record.scaleZ;
    case Scale: return vectorFrom(record.scaleX, record.scaleY, record.scaleZ);
    case RotationX: return record.rotationX;
    case RotationY: return record.rotationY;
    case RotationZ: return record.rotationZ;
    case Rotation: return vectorFrom(record.rotationX, record.rotationY, record.rotationZ);
    case Opacity: return record.opacity;
    case Locked: return record.locked;
    case ModelUri: return item.modelUri;
    case Ready: return item.ready;
    }
    return {};
}

QHash<int, QByteArray> View3DItemsListModel::roleNames() const
{
    static const QHash<int, QByteArray> names{
        {Uid, "uid"},
        {PartUid, "partUid"},
        {Name, "name"},
        {X, "x"},
        {Y, "y"},
        {Z, "z"},
        {Position, "position"},
        {ScaleX, "scaleX"},
        {ScaleY, "scaleY"},
        {ScaleZ, "scaleZ"},
        {Scale, "scale"},
        {RotationX, "rotationX"},
        {RotationY, "rotationY"},
        {RotationZ, "rotationZ"},
        {Rotation, "rotation"},
        {Opacity, "opacity"},
        {Locked, "locked"},
        {ModelUri, "modelUri"},
        {Ready, "ready"},
    };
    return names;
}

void View3DItemsListModel::add(const QString &filePath, const QString &partUid, const QJSValue &callback)
{
    const auto path = QUrl(filePath).toLocalFile();
    // Opening a pipe would wait for its writer, and a device has no end.
    const QFileInfo info(path);
    QFile file(path);
    if (!info.isFile() || info.size() > maxMeshSize || !file.open(QIODevice::ReadOnly))
        return;
    Model::View3DItem item;
    item.partUid = QUuid(partUid);
    item.name = info.fileName();
    item.modelData = file.read(maxMeshSize + 1);
    if (file.error() != QFileDevice::NoError || item.modelData.size() > maxMeshSize)
        return;
    m_communicator.addView3DItem(item, JsValues::uidsCompletion(this, callback));
}

void View3DItemsListModel::change(const QString &uid, const QVariant &item)
{
    const QUuid wanted(uid);
    const auto row =
        std::find_if(m_items.begin(), m_items.end(), [&](const auto &row) { return row.record.uid == wanted; });
    if (row == m_items.end())
        return;
    const ScriptFields fields(item);
    auto changed = row->record;
    fields.take(QStringLiteral("partUid"), changed.partUid);
    fields.take(QStringLiteral("name"), changed.name);
    fields.take(QStringLiteral("x"), changed.x);
    fields.take(QStringLiteral("y"), changed.y);
    fields.take(QStringLiteral("z"), changed.z);
    fields.take(QStringLiteral("position"), changed.x, changed.y, changed.z);
    fields.take(QStringLiteral("scaleX"), changed.scaleX);
    fields.take(QStringLiteral("scaleY"), changed.scaleY);
    fields.take(QStringLiteral("scaleZ"), changed.scaleZ);
    fields.take(QStringLiteral("scale"), changed.scaleX, changed.scaleY, changed.scaleZ);
    fields.take(QStringLiteral("rotationX"), changed.rotationX);
    fields.take(QStringLiteral("rotationY"), changed.rotationY);
    fields.take(QStringLiteral("rotationZ"), changed.rotationZ);
    fields.take(QStringLiteral("rotation"), changed.rotationX, changed.rotationY, changed.rotationZ);
    fields.take(QStringLiteral("opacity"), changed.opacity);
    fields.take(QStringLiteral("locked"), changed.locked);
    m_communicator.changeView3DItem(changed, {});
}

void View3DItemsListModel::remove(const QStringList &uids, const QJSValue &callback)
{
    std::vector<Model::View3DItem> items;
    for (const auto &uid : uids) {
        Model::View3DItem item;
        item.uid = QUuid(uid);
        if (!item.uid.isNull())
            items.push_back(item);
    }
    if (!items.empty())
        m_communicator.removeView3DItems(items, JsValues::completion(this, callback));
}

void View3DItemsListModel::onView3DItemsUpdated(const std::vector<Model::View3DItem> &items)
{
    const auto user = m_users.getCurrentUser();
    std::vector<Item> allowed;
    allowed.reserve(items.size());
    for (const auto &record : items) {
        if (!user.hasAccess(record.partUid))
            continue;
        Item item;
        item.record = record;
        item.record.modelData.clear();
        item.modelUri = m_meshes.value(record.uid);
        item.ready = !item.modelUri.isEmpty();
        allowed.push_back(std::move(item));
    }
    using Merge = DiffTransform<Rows<Item>, Item>;
    Merge(
        m_items, std::move(allowed), [](const auto &item) { return item.record.uid; }, *this)
        .transform();
    fetchMeshes();
}

void View3DItemsListModel::onView3DItemMeshReceived(const Model::View3DItem &item)
{
    m_fetching.insert(item.uid);
    auto *const watcher = new QFutureWatcher<QString>(this);
    const auto uid = item.uid;
    const int connection = m_connection;
    connect(watcher, &QFutureWatcherBase::finished, this, [this, watcher, uid, connection] {
        watcher->deleteLater();
        if (connection == m_connection)
            onMeshStored(uid, watcher->result());
    });
    // A mesh of many megabytes takes longer to hash and write than a frame lasts.
    watcher->setFuture(
        QtConcurrent::run(&m_writer, [this, mesh = item.modelData] { return storeMesh(m_folder, mesh); }));
}

void View3DItemsListModel::onMeshStored(const QUuid &uid, const QString &path)
{
    m_fetching.remove(uid);
    if (path.isEmpty()) {
        if (!m_writingFailed)
            qCWarning(meshes) << "A mesh can't be written into" << m_folder.path();
        m_writingFailed = true;
        return;
    }
    m_writingFailed = false;
    const auto uri = QUrl::fromLocalFile(path);
    m_meshes.insert(uid, uri);
    for (int row = 0; row < m_items.size(); ++row) {
        auto &item = m_items.at(row);
        if (item.record.uid != uid)
            continue;
        item.modelUri = uri;
        item.ready = true;
        const auto place = index(row);
        emit dataChanged(place, place, {ModelUri, Ready});
    }
}

// The rows on screen keep their meshes while the link reconnects. Of rows that are gone nothing is known any more.
void View3DItemsListModel::onStatusChanged()
{
    ++m_connection;
    m_fetching.clear();
    m_meshes.clear();
    for (const auto &item : m_items) {
        if (item.ready)
            m_meshes.insert(item.record.uid, item.modelUri);
    }
}

// A mesh that could not be had is asked for again with the next list.
void View3DItemsListModel::fetchMeshes()
{
    std::vector<QUuid> missing;
    for (const auto &item : m_items) {
        const auto &uid = item.record.uid;
        if (!item.ready && !uid.isNull() && !m_fetching.contains(uid)) {
            m_fetching.insert(uid);
            missing.push_back(uid);
        }
    }
    for (const auto &uid : missing)
        fetchMesh(uid);
}

void View3DItemsListModel::fetchMesh(const QUuid &uid)
{
    const QPointer<View3DItemsListModel> self(this); // the link outlives its callers
    const int connection = m_connection;
    const auto isWanted = [self, connection] { return self && self->m_connection == connection; };
    m_communicator.getView3DItem(
        uid,
        [self, uid, isWanted](const Model::View3DItem &item) {
            if (!isWanted())
                return;
            self->m_fetching.remove(uid);
            if (item.uid == uid)
                self->onView3DItemMeshReceived(item);
        },
        [self, uid, isWanted] {
            if (isWanted())
                self->m_fetching.remove(uid);
        });
}
