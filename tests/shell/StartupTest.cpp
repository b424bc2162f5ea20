// SPDX-License-Identifier: GPL-3.0-or-later
#include "shell/Startup.h"
#include "support/TestBase.h"

#include <QFile>
#include <QTemporaryDir>

class StartupTest : public TestBase
{
    Q_OBJECT

private slots:
    void localeFileDecides_data();
    void localeFileDecides();
    void withoutALocaleFileItIsRussian();
    void translatorOfTheLanguage_data();
    void translatorOfTheLanguage();
};

void StartupTest::localeFileDecides_data()
{
    QTest::addColumn<QByteArray>("content");
    QTest::addColumn<QString>("expected");

    QTest::newRow("name") << QByteArray("en_GB") << "en_GB";
    QTest::newRow("with a line feed") << QByteArray("en_GB\n") << "en_GB";
    QTest::newRow("with a DOS line end") << QByteArray("de_DE\r\n") << "de_DE";
    QTest::newRow("up to the first zero") << QByteArray("fi_FI\0en_GB", 11) << "fi_FI";
    QTest::newRow("zeros only") << QByteArray(5, '\0') << "ru_RU";
    QTest::newRow("empty") << QByteArray() << "ru_RU";
    QTest::newRow("blank") << QByteArray(" \n") << "ru_RU";
    QTest::newRow("unknown") << QByteArray("klingon") << "ru_RU";
    QTest::newRow("not a text") << QByteArray("\xff\xfe\x80") << "ru_RU";
    QTest::newRow("huge") << QByteArray(10 << 20, 'x') << "ru_RU";
}

void StartupTest::localeFileDecides()
{
    QFETCH(QByteArray, content);
    QFETCH(QString, expected);
    QTemporaryDir folder;
    QFile file(folder.filePath("ondira.locale"));
    QVERIFY(file.open(QIODevice::WriteOnly));
    QCOMPARE(file.write(content), qint64(content.size()));
    file.close();

    QCOMPARE(Startup::determineLocale(folder.path()).name(), expected);
}

void StartupTest::withoutALocaleFileItIsRussian()
{
    QTemporaryDir folder;
    QCOMPARE(Startup::determineLocale(folder.path()).name(), QString("ru_RU"));
    QCOMPARE(Startup::determineLocale("/nowhere").name(), QString("ru_RU"));

    QVERIFY(QDir(folder.path()).mkdir("ondira.locale"));
    QCOMPARE(Startup::determineLocale(folder.path()).name(), QString("ru_RU"));
}

void StartupTest::translatorOfTheLanguage_data()
{
    QTest::addColumn<QString>("prefix");
    QTest::addColumn<QString>("locale");
    QTest::addColumn<bool>("expected");

    QTest::newRow("British") << "frontend"
                             << "en_GB" << true;
    QTest::newRow("American") << "frontend"
                              << "en_US" << true;
    QTest::newRow("the source language") << "frontend"
                                         << "ru_RU" << false;
    QTest::newRow("no catalogue") << "frontend"
                                  << "fi_FI" << false;
    QTest::newRow("unknown locale") << "frontend"
                                    << "klingon" << false;
    QTest::newRow("another prefix") << "backend"
                                    << "en_GB" << false;
}

void StartupTest::translatorOfTheLanguage()
{
    QFETCH(QString, prefix);
    QFETCH(QString, locale);
    QFETCH(bool, expected);

    const auto translator = Startup::translatorForLocale(prefix, QLocale(locale));

    QCOMPARE(bool(translator), expected);
    if (translator) {
        QVERIFY(!translator->isEmpty());
        QVERIFY(!translator->translate("ConnectionsListModel", "Не удалось удалить подключение").isEmpty());
    }
}

ONDIRA_TEST(StartupTest)
#include "StartupTest.moc"
