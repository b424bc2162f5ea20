// SPDX-License-Identifier: GPL-3.0-or-later
#include "data/ImageItemsListModel.h"

#include "data/JsValues.h"
#include "data/ScriptFields.h"
#include "data/UsersListModel.h"
#include "link/AbstractBackendCommunicator.h"

#include <QFileInfo>
#include <QUrl>
#include <QtNumeric>
#include <algorithm>
#include <iterator>

ImageItemsListModel::ImageItemsListModel(AbstractBackendCommunicator &communicator, UsersListModel &users,
                                         QObject *parent)
    : UidKeyAbstractListModel(parent)
    , m_communicator(communicator)
    , m_users(users)
{
    auto &cache = communicator.getDataCache();
    connect(&cache, &BackendDataCache::imageItemsChanged, this, &ImageItemsListModel::onImageItemsReceived);
    // Users and pictures come in any order, so the rights that came last choose anew among the last list.
    connect(&users, &UsersListModel::currentUserChanged, this,
            [this] { onImageItemsReceived(m_communicator.getDataCache().getImageItems()); });
    onImageItemsReceived(cache.getImageItems());
}

int ImageItemsListModel::rowCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : m_items.size();
}

QVariant ImageItemsListModel::data(const QModelIndex &index, int role) const
{
    if (!holds(index))
        return {};
    const auto &item = m_items.at(index.row());
    switch (role) {
    case Uid: return item.uid.toString();
    case PartUid: return item.partUid.toString();
    case Name: return item.name;
    case X: return item.x;
    case Y: return item.y;
    case Width: return item.width;
    case Height: return item.height;
    case Opacity: return item.opacity;
    case CropX: return item.cropX;
    case CropY: return item.cropY;
    case CropWidth: return item.cropWidth;
    case CropHeight: return item.cropHeight;
    case OnTop: return item.onTop;
    case Locked: return item.locked;
    }
    return {};
}

QHash<int, QByteArray> ImageItemsListModel::roleNames() const
{
    static const QHash<int, QByteArray> names{
        {Uid, "uid"},     {PartUid, "partUid"}, {Name, "name"},           {X, "x"},
        {Y, "y"},         {Width, "width"},     {Height, "height"},       {Opacity, "opacity"},
        {CropX, "cropX"}, {CropY, "cropY"},     {CropWidth, "cropWidth"}, {CropHeight, "cropHeight"},
        {OnTop, "onTop"}, {Locked, "locked"},
    };
    return names;
}

void ImageItemsListModel::add(const QString &filePath, const QString &partUid, double x, double y,
                              const QJSValue &callback)
{
    if (!qIsFinite(x) || !qIsFinite(y))
        return;
    const auto path = QUrl(filePath).toLocalFile();
    Model::ImageItem item;
    item.partUid = QUuid(partUid);
    item.name = QFileInfo(path).fileName();
    item.x = x;
    item.y = y;
    item.image = Model::ImageItem::Image::fromFile(path);
    m_communicator.addImageItem(item, JsValues::uidsCompletion(this, callback));
}

void ImageItemsListModel::change(const QString &uid, const QVariant &item)
{
    const QUuid wanted(uid);
    const auto row = std::find_if(m_items.begin(), m_items.end(), [&](const auto &row) { return row.uid == wanted; });
    if (row == m_items.end())
        return;
    const ScriptFields fields(item);
    auto changed = *row;
    fields.take(QStringLiteral("name"), changed.name);
    fields.take(QStringLiteral("x"), changed.x);
    fields.take(QStringLiteral("y"), changed.y);
    fields.take(QStringLiteral("width"), changed.width);
    fields.take(QStringLiteral("height"), changed.height);
    fields.take(QStringLiteral("partUid"), changed.partUid);
    fields.take(QStringLiteral("opacity"), changed.opacity);
    fields.take(QStringLiteral("cropX"), changed.cropX);
    fields.take(QStringLiteral("cropY"), changed.cropY);
    fields.take(QStringLiteral("cropWidth"), changed.cropWidth);
    fields.take(QStringLiteral("cropHeight"), changed.cropHeight);
    fields.take(QStringLiteral("onTop"), changed.onTop);
    fields.take(QStringLiteral("locked"), changed.locked);
    m_communicator.changeImageItem(changed, {});
}

void ImageItemsListModel::remove(const QStringList &uids, const QJSValue &callback)
{
    std::vector<Model::ImageItem> items;
    for (const auto &uid : uids) {
        Model::ImageItem item;
        item.uid = QUuid(uid);
        if (!item.uid.isNull())
            items.push_back(item);
    }
    if (!items.empty())
        m_communicator.removeImageItems(items, JsValues::completion(this, callback));
}

void ImageItemsListModel::onImageItemsReceived(const std::vector<Model::ImageItem> &items)
{
    const auto user = m_users.getCurrentUser();
    std::vector<Model::ImageItem> allowed;
    std::copy_if(items.begin(), items.end(), std::back_inserter(allowed),
                 [&](const auto &item) { return user.hasAccess(item.partUid); });
    using Merge = DiffTransform<Rows<Model::ImageItem>, Model::ImageItem>;
    Merge(
        m_items, std::move(allowed), [](const auto &item) { return item.uid; }, *this)
        .transform();
}
