// SPDX-License-Identifier: GPL-3.0-or-later
#include "link/zmq/ZmqError.h"
#include "support/TestBase.h"

#include <cerrno>
#include <zmq.h>

class ZmqErrorTest : public TestBase
{
    Q_OBJECT

private slots:
    void keepsTheNumberOfTheFailedCall();
    void tellsTheTextOfTheLibrary();
};

void ZmqErrorTest::keepsTheNumberOfTheFailedCall()
{
    zmq_ctx_set(nullptr, ZMQ_IO_THREADS, 1); // fails

    const zmq::error_t error;
    errno = 0;

    QCOMPARE(error.num(), EFAULT);
}

void ZmqErrorTest::tellsTheTextOfTheLibrary()
{
    QCOMPARE(QByteArray(zmq::error_t(EAGAIN).what()), QByteArray(zmq_strerror(EAGAIN)));
    QCOMPARE(QByteArray(zmq::error_t(ETERM).what()), QByteArray("Context was terminated"));
}

ONDIRA_TEST(ZmqErrorTest)
#include "ZmqErrorTest.moc"
