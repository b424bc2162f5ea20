// SPDX-License-Identifier: GPL-3.0-or-later
#include "shell/RuntimePermissionsManager.h"
#include "support/TestBase.h"

#include <QSignalSpy>
#include <QThread>

namespace {

using Answer = std::function<void(bool)>;

// A platform whose user answers when the test says so.
class AskingManager : public RuntimePermissionsManager
{
public:
    QList<QStringList> asked;
    QList<Answer> answers;

protected:
    void askPlatform(const QStringList &permissions, const Answer &answer) override
    {
        asked << permissions;
        answers << answer;
    }
};

} // namespace

class RuntimePermissionsManagerTest : public TestBase
{
    Q_OBJECT

private slots:
    void grantsEachGroup_data();
    void grantsEachGroup();
    void grantsLaterAndNotInTheCall();
    void twoQuickCallsGiveTwoSignals();
    void requestsRunInOrder();
    void asksForOneAtATime();
    void deniedRequestMovesOn();
    void callbackMayAskForMore();
    void missingCallbacksAreNoHarm();
    void secondAnswerIsIgnored();
    void answerAfterTheEndIsIgnored();
    void emptyQueueIsNoHarm();
    void mayBeAskedOnAnyThread();
};

void RuntimePermissionsManagerTest::grantsEachGroup_data()
{
    QTest::addColumn<QByteArray>("invoked");
    QTest::addColumn<QByteArray>("granted");
    QTest::addColumn<QByteArray>("denied");
    QTest::addColumn<QStringList>("permissions");

    const QString prefix = "android.permission.";
    QTest::newRow("storage") << QByteArray("getStoragePermission") << QByteArray(SIGNAL(storageGranted()))
                             << QByteArray(SIGNAL(storageDenied()))
                             << QStringList{prefix + "READ_EXTERNAL_STORAGE", prefix + "WRITE_EXTERNAL_STORAGE"};
    QTest::newRow("SMS") << QByteArray("getSmsPermission") << QByteArray(SIGNAL(smsGranted()))
                         << QByteArray(SIGNAL(smsDenied()))
                         << QStringList{prefix + "RECEIVE_SMS", prefix + "READ_SMS", prefix + "SEND_SMS"};
    QTest::newRow("location") << QByteArray("getLocationPermission") << QByteArray(SIGNAL(locationGranted()))
                              << QByteArray(SIGNAL(locationDenied()))
                              << QStringList{prefix + "ACCESS_COARSE_LOCATION", prefix + "ACCESS_FINE_LOCATION"};
}

void RuntimePermissionsManagerTest::grantsEachGroup()
{
    QFETCH(QByteArray, invoked);
    QFETCH(QByteArray, granted);
    QFETCH(QByteArray, denied);
    QFETCH(QStringList, permissions);
    RuntimePermissionsManager manager;
    QSignalSpy grantedSpy(&manager, granted.constData());
    QSignalSpy deniedSpy(&manager, denied.constData());

    QVERIFY(QMetaObject::invokeMethod(&manager, invoked.constData()));

    QVERIFY(grantedSpy.wait(patience));
    QCOMPARE(grantedSpy.size(), 1);
    QCOMPARE(deniedSpy.size(), 0);

    AskingManager asking;
    QSignalSpy askingDenied(&asking, denied.constData());
    QVERIFY(QMetaObject::invokeMethod(&asking, invoked.constData()));
    QTRY_COMPARE(asking.asked, QList<QStringList>() << permissions);
    asking.answers.first()(false);
    QCOMPARE(askingDenied.size(), 1);
}

void RuntimePermissionsManagerTest::grantsLaterAndNotInTheCall()
{
    RuntimePermissionsManager manager;
    QSignalSpy granted(&manager, &RuntimePermissionsManager::storageGranted);

    manager.getStoragePermission();

    QCOMPARE(granted.size(), 0);
    QVERIFY(granted.wait(patience));
}

void RuntimePermissionsManagerTest::twoQuickCallsGiveTwoSignals()
{
    RuntimePermissionsManager manager;
    QSignalSpy granted(&manager, &RuntimePermissionsManager::storageGranted);

    manager.getStoragePermission();
    manager.getStoragePermission();

    QTRY_COMPARE(granted.size(), 2);
}

void RuntimePermissionsManagerTest::requestsRunInOrder()
{
    RuntimePermissionsManager manager;
    QStringList order;

    manager.sms([&order] { order << "sms"; }, {});
    manager.storage([&order] { order << "storage"; }, {});
    manager.location([&order] { order << "location"; }, {});

    QTRY_COMPARE(order, QStringList({"sms", "storage", "location"}));
}

void RuntimePermissionsManagerTest::asksForOneAtATime()
{
    AskingManager manager;
    manager.storage({}, {});
    manager.sms({}, {});
    QTRY_COMPARE(manager.asked.size(), 1);

    manager.processQueuedRequest();
    QCoreApplication::processEvents();
    QCOMPARE(manager.asked.size(), 1);

    manager.answers.first()(true);
    QTRY_COMPARE(manager.asked.size(), 2);
}

void RuntimePermissionsManagerTest::deniedRequestMovesOn()
{
    AskingManager manager;
    QSignalSpy storageDenied(&manager, &RuntimePermissionsManager::storageDenied);
    QSignalSpy storageGranted(&manager, &RuntimePermissionsManager::storageGranted);
    QSignalSpy smsGranted(&manager, &RuntimePermissionsManager::smsGranted);
    manager.getStoragePermission();
    manager.getSmsPermission();
    QTRY_COMPARE(manager.answers.size(), 1);

    manager.answers.at(0)(false);
    QTRY_COMPARE(manager.answers.size(), 2);
    manager.answers.at(1)(true);

    QCOMPARE(storageDenied.size(), 1);
    QCOMPARE(storageGranted.size(), 0);
    QCOMPARE(smsGranted.size(), 1);
}

void RuntimePermissionsManagerTest::callbackMayAskForMore()
{
    RuntimePermissionsManager manager;
    int granted = 0;
    std::function<void()> again = [&] {
        if (++granted < 5)
            manager.storage(again, {});
    };

    manager.storage(again, {});

    QTRY_COMPARE(granted, 5);
    QCoreApplication::processEvents();
    QCOMPARE(granted, 5);
}

void RuntimePermissionsManagerTest::missingCallbacksAreNoHarm()
{
    RuntimePermissionsManager manager;
    QSignalSpy granted(&manager, &RuntimePermissionsManager::locationGranted);

    manager.storage({}, {});
    manager.getLocationPermission();

    QVERIFY(granted.wait(patience));
}

void RuntimePermissionsManagerTest::secondAnswerIsIgnored()
{
    AskingManager manager;
    QSignalSpy storageGranted(&manager, &RuntimePermissionsManager::storageGranted);
    QSignalSpy smsDenied(&manager, &RuntimePermissionsManager::smsDenied);
    manager.getStoragePermission();
    manager.getSmsPermission();
    QTRY_COMPARE(manager.answers.size(), 1);
    const auto answer = manager.answers.first(); // the list moves when the next one comes

    answer(true);
    answer(false);
    QTRY_COMPARE(manager.answers.size(), 2);
    answer(false);

    QCOMPARE(storageGranted.size(), 1);
    QCOMPARE(smsDenied.size(), 0);
}

void RuntimePermissionsManagerTest::answerAfterTheEndIsIgnored()
{
    int called = 0;
    Answer answer;
    {
        AskingManager manager;
        manager.storage([&called] { ++called; }, [&called] { ++called; });
        QTRY_COMPARE(manager.answers.size(), 1);
        answer = manager.answers.first();
    }

    answer(true);

    QCOMPARE(called, 0);
}

void RuntimePermissionsManagerTest::emptyQueueIsNoHarm()
{
    AskingManager manager;

    manager.processQueuedRequest();

    QVERIFY(manager.asked.isEmpty());
}

void RuntimePermissionsManagerTest::mayBeAskedOnAnyThread()
{
    RuntimePermissionsManager manager;
    QThread *calledOn = nullptr;
    const std::unique_ptr<QThread> thread(
        QThread::create([&] { manager.storage([&calledOn] { calledOn = QThread::currentThread(); }, {}); }));
    thread->start();
    QVERIFY(thread->wait());

    QTRY_VERIFY(calledOn);
    QCOMPARE(calledOn, QThread::currentThread());
}

ONDIRA_TEST(RuntimePermissionsManagerTest)
#include "RuntimePermissionsManagerTest.moc"
