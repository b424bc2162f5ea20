// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QMutex>
#include <QObject>
#include <QStringList>
#include <deque>
#include <functional>

// Asks the platform for groups of permissions, one at a time, and calls back. Where the platform asks nothing, every
// request is granted, by the same road. QML knows it as "permissionsManager".
class RuntimePermissionsManager : public QObject
{
    Q_OBJECT

public:
    using Callback = std::function<void()>;

    struct PermissionRequest
    {
        QStringList permissions;
        Callback onGranted;
        Callback onDenied;
    };

    explicit RuntimePermissionsManager(QObject *parent = nullptr);

    // May be called on any thread; the callbacks run on this object's.
    void storage(const Callback &onGranted, const Callback &onDenied);
    void sms(const Callback &onGranted, const Callback &onDenied);
    void location(const Callback &onGranted, const Callback &onDenied);

    Q_INVOKABLE void getStoragePermission();
    Q_INVOKABLE void getSmsPermission();
    Q_INVOKABLE void getLocationPermission();
    Q_INVOKABLE void processQueuedRequest();

signals:
    void storageGranted();
    void storageDenied();
    void smsGranted();
    void smsDenied();
    void locationGranted();
    void locationDenied();

protected:
    // Asks the platform and answers once, now or later. Granted at once unless a platform knows better.
    virtual void askPlatform(const QStringList &permissions, const std::function<void(bool granted)> &answer);

private:
    void enqueueRequest(const PermissionRequest &request);
    void postProcessing();
    void onAnswered(bool granted);

    std::deque<PermissionRequest> m_requests;
    bool m_asking = false; // the head waits for the platform's answer
    QMutex m_mutex; // over the two above; callbacks run without it, since they may ask for more
};
