// SPDX-License-Identifier: GPL-3.0-or-later
#include "e2e/SiteProcess.h"
#include "support/TestBase.h"

#include <QDir>
#include <QFile>
#include <QProcess>
#include <QStandardPaths>
#include <QTemporaryDir>

// The executable as a user starts it, seen by its log.
class ExecutableTest : public TestBase
{
    Q_OBJECT

private:
    static void start(QProcess &program, const QString &home = {})
    {
        auto environment = QProcessEnvironment::systemEnvironment();
        if (!home.isEmpty())
            environment.insert(QStringLiteral("XDG_DATA_HOME"), home);
        program.setProcessEnvironment(environment);
        program.setProcessChannelMode(QProcess::MergedChannels);
        program.start(QStringLiteral(ONDIRA_PROGRAM), QStringList());
    }

    // The log has come to hold that many lines of that text.
    static bool waitForLog(QProcess &program, QString &log, const QString &text, int times, int timeoutMs = 30000)
    {
        return QTest::qWaitFor(
            [&] {
                log += QString::fromUtf8(program.readAll());
                return log.count(text) >= times;
            },
            timeoutMs);
    }

private slots:
    void losesTheServerAndComesBack();
    void startsInAHomeThatCannotBeWritten();
    void startsOnADamagedDatabaseAndLeavesItAlone();
};

void ExecutableTest::losesTheServerAndComesBack()
{
    SiteProcess site(QStringLiteral("127.0.5.1"));
    QVERIFY(site.start());
    QVERIFY(
        saveConnection(QStringLiteral("Проверка"), site.address(), QStringLiteral("admin"), QStringLiteral("admin")));
    ChildProcess program;
    QString log;

    start(program);
    QVERIFY2(waitForLog(program, log, QStringLiteral("Status: Connected"), 1), qPrintable(log));
    site.stop();
    QVERIFY2(waitForLog(program, log, QStringLiteral("Status: Connecting"), 2), qPrintable(log));
    QVERIFY(site.start());
    QVERIFY2(waitForLog(program, log, QStringLiteral("Status: Connected"), 2), qPrintable(log));
    program.terminate();

    QVERIFY(program.waitForFinished(10000));
    log += QString::fromUtf8(program.readAll());
    // Two lines for each message: where it comes from, then the time, the level, two blanks, and the text.
    const QRegularExpression message(
        QStringLiteral("src/link/\\w+\\.cpp:\\d+:\\n\\[\\d\\d:\\d\\d:\\d\\d\\.\\d{3}\\]\\[D\\]\\[default\\]:  "
                       "Initializing connection"));
    QVERIFY2(message.match(log).hasMatch(), qPrintable(log));
    QVERIFY2(!log.contains(QStringLiteral("[W]:")), qPrintable(log));
    QVERIFY2(!log.contains(QStringLiteral("qrc:/")), qPrintable(log));
}

void ExecutableTest::startsInAHomeThatCannotBeWritten()
{
    ChildProcess program;
    QString log;

    // A file stands where the data folder should be: not even root can write below it.
    QTemporaryDir folder;
    const QString home = folder.filePath(QStringLiteral("home"));
    QFile file(home);
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.close();
    start(program, home);

    QVERIFY2(waitForLog(program, log, QStringLiteral("Can not open db"), 1), qPrintable(log));
    QCOMPARE(program.state(), QProcess::Running);
    program.terminate();
    QVERIFY(program.waitForFinished(10000));
    QVERIFY2(!log.contains(QStringLiteral("[C]:")), qPrintable(log));
}

void ExecutableTest::startsOnADamagedDatabaseAndLeavesItAlone()
{
    QTemporaryDir home;
    QVERIFY(QDir(home.path()).mkpath(QStringLiteral(".ondirasmart/db")));
    QFile database(home.filePath(QStringLiteral(".ondirasmart/db/client_connections.sqlite")));
    const QByteArray damaged = QByteArray("SQLite format 3\0", 16) + QByteArray(5000, 'x');
    QVERIFY(database.open(QIODevice::WriteOnly));
    database.write(damaged);
    database.close();
    ChildProcess program;
    QString log;

    start(program, home.path());

    QVERIFY2(waitForLog(program, log, QStringLiteral("[W]:"), 1), qPrintable(log));
    QCOMPARE(program.state(), QProcess::Running);
    program.terminate();
    QVERIFY(program.waitForFinished(10000));
    QVERIFY(database.open(QIODevice::ReadOnly));
    QCOMPARE(database.readAll(), damaged);
}

ONDIRA_TEST(ExecutableTest)
#include "ExecutableTest.moc"
