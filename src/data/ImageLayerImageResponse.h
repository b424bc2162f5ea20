// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>
#include <QImage>
#include <QQuickImageResponse>
#include <QSize>
#include <QString>
#include <functional>
#include <memory>
#include <mutex>

class QQuickTextureFactory;

// The answer to one request for a picture. The engine owns it, and may delete it at any moment, also before the picture
// has come: whoever brings the picture reaches it through its guard. Finishes once, with a texture or an error.
class ImageLayerImageResponse : public QQuickImageResponse
{
    Q_OBJECT

public:
    // Any thread may hold one and call it, also after the response is gone.
    class Guard
    {
    public:
        explicit Guard(ImageLayerImageResponse *response)
            : m_response(response)
        {}

        // Runs the call on the thread of the response, if that still stands then.
        void post(const std::function<void(ImageLayerImageResponse &response)> &call);
        void release();

    private:
        std::mutex m_mutex;
        ImageLayerImageResponse *m_response;
    };

    ImageLayerImageResponse();
    ~ImageLayerImageResponse() override;

    std::shared_ptr<Guard> guard() const { return m_guard; }

    // Decodes the bytes of the file, scales if the size is valid, and finishes.
    void setData(const QByteArray &data, const QSize &size);
    void fail(const QString &error);

    QQuickTextureFactory *textureFactory() const override; // the caller's from then on
    QString errorString() const override { return m_error; }
    void cancel() override { m_cancelled = true; }

private:
    void finish(const QString &error);

    std::shared_ptr<Guard> m_guard;
    QImage m_image;
    mutable std::unique_ptr<QQuickTextureFactory> m_texture; // until the engine takes it
    QString m_error;
    bool m_cancelled = false;
    bool m_finished = false;
};
