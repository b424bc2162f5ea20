// SPDX-License-Identifier: GPL-3.0-or-later
#include "Peer.h"
#include "SiteFixture.h"
#include "support/TestBase.h"

#include <QJsonArray>
#include <QProcess>
#include <QTemporaryDir>
#include <csignal>

using namespace SiteFixture;

namespace {

class Program
{
public:
    explicit Program(const QStringList &arguments) { process.start(QStringLiteral(ONDIRA_DEMO_PROGRAM), arguments); }

    ~Program()
    {
        process.kill();
        process.waitForFinished(patience);
    }

    // The ports of its one line, or zeros.
    QPair<int, int> listen()
    {
        while (!process.canReadLine()) {
            if (!process.waitForReadyRead(patience))
                return {};
        }
        line = QString::fromUtf8(process.readLine());
        static const QRegularExpression form(R"(^Listening on 127\.0\.0\.1:(\d+) and 127\.0\.0\.1:(\d+)\n$)");
        const auto match = form.match(line);
        return {match.captured(1).toInt(), match.captured(2).toInt()};
    }

    QProcess process;
    QString line;
};

const QStringList freePorts{"--control-port", "0", "--update-port", "0"};

} // namespace

class DemoProcessTest : public TestBase
{
    Q_OBJECT

private slots:
    void tellsItsPortsAndServes();
    void signalEndsItCleanly_data();
    void signalEndsItCleanly();
    void portInUseEndsItWithTwo();
    void badArgumentsEndIt_data();
    void badArgumentsEndIt();
    void helpEndsItWithZero();
};

void DemoProcessTest::tellsItsPortsAndServes()
{
    Program program(freePorts + QStringList{"--version", "4.4.0", "--scale", "2"});
    const auto ports = program.listen();
    QVERIFY2(ports.first > 0 && ports.second > 0, qPrintable(program.line));
    Peer peer(ports.first, ports.second);

    const auto login = peer.ask(loginDocument("admin", "admin"));
    peer.subscribe("shop_parts");

    QTRY_VERIFY_WITH_TIMEOUT(peer.hasReply(login) && peer.has("shop_parts"), patience);
    QCOMPARE(peer.reply(login).value("server_version").toString(), QString("4.4.0"));
    QCOMPARE(peer.list("shop_parts").value("data").toArray().size(), 6);
}

void DemoProcessTest::signalEndsItCleanly_data()
{
    QTest::addColumn<int>("signal");

    QTest::newRow("terminate") << SIGTERM;
    QTest::newRow("interrupt") << SIGINT;
}

void DemoProcessTest::signalEndsItCleanly()
{
    QFETCH(int, signal);
    Program program(freePorts);
    QVERIFY(program.listen().first > 0);

    ::kill(pid_t(program.process.processId()), signal);

    QVERIFY(program.process.waitForFinished(patience));
    QCOMPARE(program.process.exitStatus(), QProcess::NormalExit);
    QCOMPARE(program.process.exitCode(), 0);
    QCOMPARE(program.process.readAllStandardError(), QByteArray());
}

void DemoProcessTest::portInUseEndsItWithTwo()
{
    Program first(freePorts);
    const auto ports = first.listen();
    QVERIFY(ports.first > 0);

    Program second({"--control-port", QString::number(ports.first), "--update-port", "0"});

    QVERIFY(second.process.waitForFinished(patience));
    QCOMPARE(second.process.exitCode(), 2);
    const auto error = second.process.readAllStandardError();
    QVERIFY2(error.contains(QByteArray::number(ports.first)) && error.contains("in use"), error);
    QCOMPARE(second.process.readAllStandardOutput(), QByteArray());
}

void DemoProcessTest::badArgumentsEndIt_data()
{
    QTest::addColumn<QStringList>("arguments");

    QTest::newRow("unknown option") << QStringList{"--fast"};
    QTest::newRow("bad port") << QStringList{"--control-port", "http"};
    QTest::newRow("no such site") << QStringList{"--site", "/nowhere/site.json"};
}

void DemoProcessTest::badArgumentsEndIt()
{
    QFETCH(QStringList, arguments);
    Program program(arguments);

    QVERIFY(program.process.waitForFinished(patience));

    QCOMPARE(program.process.exitCode(), 1);
    QVERIFY(!program.process.readAllStandardError().isEmpty());
}

void DemoProcessTest::helpEndsItWithZero()
{
    Program program({"--help"});

    QVERIFY(program.process.waitForFinished(patience));

    QCOMPARE(program.process.exitCode(), 0);
    QVERIFY(program.process.readAllStandardOutput().contains("--control-port"));
}

ONDIRA_TEST(DemoProcessTest)
#include "DemoProcessTest.moc"
