// SPDX-License-Identifier: GPL-3.0-or-later
#include "data/ImageLayerImageResponse.h"

#include "data/PictureReader.h"

#include <QLoggingCategory>
#include <QQuickTextureFactory>

namespace {

Q_LOGGING_CATEGORY(imageLayer, "ondira.images")

} // namespace

void ImageLayerImageResponse::Guard::post(const std::function<void(ImageLayerImageResponse &response)> &call)
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    if (!m_response)
        return;
    auto *const response = m_response;
    // Dropped with the response if it goes before its turn.
    QMetaObject::invokeMethod(
        response, [response, call] { call(*response); }, Qt::QueuedConnection);
}

void ImageLayerImageResponse::Guard::release()
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    m_response = nullptr;
}

ImageLayerImageResponse::ImageLayerImageResponse()
    : m_guard(std::make_shared<Guard>(this))
{}

ImageLayerImageResponse::~ImageLayerImageResponse()
{
    m_guard->release();
}

void ImageLayerImageResponse::setData(const QByteArray &data, const QSize &size)
{
    if (m_finished)
        return;
    qCDebug(imageLayer) << "Data set" << data.size();
    if (m_cancelled) {
        finish(QStringLiteral("The picture is not wanted any more"));
        return;
    }
    const auto picture = PictureReader::read(data, size);
    m_image = picture.image;
    if (m_image.isNull())
        qCDebug(imageLayer) << "Image is null:" << picture.error;
    else
        m_texture.reset(QQuickTextureFactory::textureFactoryForImage(m_image));
    finish(picture.error);
}

void ImageLayerImageResponse::fail(const QString &error)
{
    if (!m_finished)
        finish(error);
}

QQuickTextureFactory *ImageLayerImageResponse::textureFactory() const
{
    return m_texture.release();
}

// Queued, since the engine may still be within its request, and would miss the signal.
void ImageLayerImageResponse::finish(const QString &error)
{
    m_finished = true;
    m_error = error;
    QMetaObject::invokeMethod(this, &QQuickImageResponse::finished, Qt::QueuedConnection);
}
