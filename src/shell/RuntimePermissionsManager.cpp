// SPDX-License-Identifier: GPL-3.0-or-later
#include "shell/RuntimePermissionsManager.h"

#include <QMutexLocker>
#include <QPointer>
#include <memory>

RuntimePermissionsManager::RuntimePermissionsManager(QObject *parent)
    : QObject(parent)
{}

void RuntimePermissionsManager::storage(const Callback &onGranted, const Callback &onDenied)
{
    enqueueRequest({{QStringLiteral("android.permission.READ_EXTERNAL_STORAGE"),
                     QStringLiteral("android.permission.WRITE_EXTERNAL_STORAGE")},
                    onGranted,
                    onDenied});
}

void RuntimePermissionsManager::sms(const Callback &onGranted, const Callback &onDenied)
{
    enqueueRequest({{QStringLiteral("android.permission.RECEIVE_SMS"), QStringLiteral("android.permission.READ_SMS"),
                     QStringLiteral("android.permission.SEND_SMS")},
                    onGranted,
                    onDenied});
}

void RuntimePermissionsManager::location(const Callback &onGranted, const Callback &onDenied)
{
    enqueueRequest({{QStringLiteral("android.permission.ACCESS_COARSE_LOCATION"),
                     QStringLiteral("android.permission.ACCESS_FINE_LOCATION")},
                    onGranted,
                    onDenied});
}

void RuntimePermissionsManager::getStoragePermission()
{
    storage([this] { emit storageGranted(); }, [this] { emit storageDenied(); });
}

void RuntimePermissionsManager::getSmsPermission()
{
    sms([this] { emit smsGranted(); }, [this] { emit smsDenied(); });
}

void RuntimePermissionsManager::getLocationPermission()
{
    location([this] { emit locationGranted(); }, [this] { emit locationDenied(); });
}

void RuntimePermissionsManager::processQueuedRequest()
{
    QStringList permissions;
    {
        QMutexLocker locker(&m_mutex);
        if (m_requests.empty() || m_asking)
            return;
        m_asking = true;
        permissions = m_requests.front().permissions;
    }
    // A platform may answer after this object is gone, or twice.
    const QPointer<RuntimePermissionsManager> self(this);
    const auto answered = std::make_shared<bool>(false);
    askPlatform(permissions, [self, answered](bool granted) {
        if (self && !*answered) {
            *answered = true;
            self->onAnswered(granted);
        }
    });
}

void RuntimePermissionsManager::askPlatform(const QStringList &, const std::function<void(bool granted)> &answer)
{
    answer(true);
}

void RuntimePermissionsManager::enqueueRequest(const PermissionRequest &request)
{
    QMutexLocker locker(&m_mutex);
    m_requests.push_back(request);
    if (m_requests.size() == 1)
        postProcessing();
}

void RuntimePermissionsManager::postProcessing()
{
    QMetaObject::invokeMethod(this, &RuntimePermissionsManager::processQueuedRequest, Qt::QueuedConnection);
}

void RuntimePermissionsManager::onAnswered(bool granted)
{
    Callback callback;
    bool moreRemain = false;
    {
        QMutexLocker locker(&m_mutex);
        callback = granted ? m_requests.front().onGranted : m_requests.front().onDenied;
        m_requests.pop_front();
        m_asking = false;
        moreRemain = !m_requests.empty(); // now: what the callback adds posts itself
    }
    const QPointer<RuntimePermissionsManager> self(this);
    if (callback)
        callback();
    if (self && moreRemain)
        postProcessing();
}
