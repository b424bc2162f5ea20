// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QMetaObject>
#include <QQuickImageProvider>
#include <memory>
#include <vector>

class AbstractBackendCommunicator;
class ImageStore;

// Pictures of plans for QML, under "image://image_layer/" and the uid of the item: fetched from the server, and kept as
// they came until the status of the link changes, so that a picture of one server never shows on another. The engine
// owns it and calls it on its image thread.
class QuickImageLayerProvider : public QQuickAsyncImageProvider
{
public:
    explicit QuickImageLayerProvider(AbstractBackendCommunicator &communicator);
    ~QuickImageLayerProvider() override;

    QQuickImageResponse *requestImageResponse(const QString &id, const QSize &requestedSize) override;

    void clearCache();

private:
    class Link;

    std::shared_ptr<ImageStore> m_store; // shared with the requests that are out
    std::shared_ptr<Link> m_link;
    std::vector<QMetaObject::Connection> m_connections;
};
