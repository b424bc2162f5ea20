// SPDX-License-Identifier: GPL-3.0-or-later
#include "link/OperationStatus.h"
#include "support/TestBase.h"

#include <QtConcurrent>
#include <atomic>

class OperationStatusTest : public TestBase
{
    Q_OBJECT

private slots:
    void newOperationIsNotCancelled();
    void cancelledOperationStaysCancelled();
    void cancelFromAnotherThreadIsSeen();
};

void OperationStatusTest::newOperationIsNotCancelled()
{
    const OperationStatus status;

    QVERIFY(!status.isCancelled());
}

void OperationStatusTest::cancelledOperationStaysCancelled()
{
    OperationStatus status;

    status.cancel();
    status.cancel();

    QVERIFY(status.isCancelled());
    QVERIFY(status.isCancelled());
}

void OperationStatusTest::cancelFromAnotherThreadIsSeen()
{
    OperationStatus status;
    std::atomic<bool> seen{false};
    const auto worker = QtConcurrent::run([&] {
        while (!status.isCancelled())
            QThread::yieldCurrentThread();
        seen = true;
    });

    // The call does nothing while the worker looks, so a caller that must be heard asks again.
    QTRY_VERIFY((status.cancel(), seen.load()));

    QVERIFY(status.isCancelled());
    QFuture<void>(worker).waitForFinished();
}

ONDIRA_TEST(OperationStatusTest)
#include "OperationStatusTest.moc"
