// SPDX-License-Identifier: GPL-3.0-or-later
#include "data/QuickImageLayerProvider.h"

#include "data/ImageLayerImageResponse.h"
#include "data/ImageStore.h"
#include "link/AbstractBackendCommunicator.h"

#include <QLoggingCategory>
#include <QUrl>
#include <QUuid>
#include <functional>
#include <mutex>
#include <string>
#include <utility>

namespace {

Q_LOGGING_CATEGORY(imageLayer, "ondira.images")

// None for what is no uid. QUuid alone would pass over what follows one.
QUuid uidFrom(const QString &id)
{
    const auto text = QUrl::fromPercentEncoding(id.toUtf8());
    const QUuid uid(text);
    const bool isUid = text.compare(uid.toString(), Qt::CaseInsensitive) == 0
        || text.compare(uid.toString(QUuid::WithoutBraces), Qt::CaseInsensitive) == 0;
    return isUid ? uid : QUuid();
}

// One request that is out. The response is answered in any case: whoever drops the request without an answer, a link
// that is torn down for instance, fails it.
class Request
{
public:
    Request(std::string id, const QSize &size, std::shared_ptr<ImageLayerImageResponse::Guard> response,
            std::shared_ptr<ImageStore> store)
        : m_id(std::move(id))
        , m_size(size)
        , m_response(std::move(response))
        , m_store(std::move(store))
    {}
    Request(const Request &) = delete;
    Request &operator=(const Request &) = delete;
    ~Request() { fail(QStringLiteral("The picture has not come")); }

    // It belongs to the link that sends it. The one that was there when the picture was asked for may have gone since.
    void noteLink() { m_generation = m_store->find(m_id).generation; }

    void answer(const QByteArray &bytes)
    {
        if (!m_store->put(m_id, m_generation, std::make_shared<const std::string>(bytes.toStdString()))) {
            fail(QStringLiteral("The link has changed since the picture was asked for"));
            return;
        }
        const auto size = m_size;
        finish([bytes, size](ImageLayerImageResponse &response) { response.setData(bytes, size); });
    }

    void fail(const QString &error)
    {
        finish([error](ImageLayerImageResponse &response) { response.fail(error); });
    }

private:
    void finish(const std::function<void(ImageLayerImageResponse &response)> &call)
    {
        if (m_response)
            m_response->post(call);
        m_response.reset();
    }

    std::uint64_t m_generation = 0;
    const std::string m_id;
    const QSize m_size;
    std::shared_ptr<ImageLayerImageResponse::Guard> m_response;
    const std::shared_ptr<ImageStore> m_store;
};

} // namespace

// The communicator as other threads may reach it: it may go at any moment on its own.
class QuickImageLayerProvider::Link
{
public:
    explicit Link(AbstractBackendCommunicator &communicator)
        : m_communicator(&communicator)
    {}

    void release()
    {
        const std::lock_guard<std::mutex> lock(m_mutex);
        m_communicator = nullptr;
    }

    // On the thread of the communicator, or not at all.
    void post(const std::function<void(AbstractBackendCommunicator &communicator)> &call)
    {
        const std::lock_guard<std::mutex> lock(m_mutex);
        if (!m_communicator)
            return;
        auto *const communicator = m_communicator;
        QMetaObject::invokeMethod(
            communicator, [communicator, call] { call(*communicator); }, Qt::QueuedConnection);
    }

private:
    std::mutex m_mutex;
    AbstractBackendCommunicator *m_communicator;
};

QuickImageLayerProvider::QuickImageLayerProvider(AbstractBackendCommunicator &communicator)
    : m_store(std::make_shared<ImageStore>())
    , m_link(std::make_shared<Link>(communicator))
{
    // The engine may drop its providers on another thread, so what the signals reach must not be this object.
    m_connections = {
        QObject::connect(&communicator, &AbstractBackendCommunicator::statusChanged,
                         [store = m_store] { store->clear(); }),
        QObject::connect(&communicator, &QObject::destroyed, [link = m_link] { link->release(); }),
    };
}

QuickImageLayerProvider::~QuickImageLayerProvider()
{
    for (const auto &connection : m_connections)
        QObject::disconnect(connection);
}

QQuickImageResponse *QuickImageLayerProvider::requestImageResponse(const QString &id, const QSize &requestedSize)
{
    qCDebug(imageLayer) << "Request image:" << id;
    auto *const response = new ImageLayerImageResponse;
    const auto uid = uidFrom(id);
    if (uid.isNull()) {
        response->fail(QStringLiteral("This names no picture"));
        return response;
    }
    const auto key = uid.toString().toStdString(); // however the id was written
    const auto found = m_store->find(key);
    if (found.bytes) {
        response->setData(QByteArray::fromRawData(found.bytes->data(), static_cast<int>(found.bytes->size())),
                          requestedSize);
        return response;
    }
    const auto request = std::make_shared<Request>(key, requestedSize, response->guard(), m_store);
    m_link->post([uid, request](AbstractBackendCommunicator &communicator) {
        request->noteLink();
        communicator.getImage(
            uid, [request](const Model::ImageItem::Image &image) { request->answer(image.data); },
            [request] { request->fail(QStringLiteral("The server has not sent the picture")); });
    });
    return response;
}

void QuickImageLayerProvider::clearCache()
{
    m_store->clear();
}
