// SPDX-License-Identifier: GPL-3.0-or-later
// What the program carries in its resource root.
#include "support/TestBase.h"

#include <QFile>
#include <QFontDatabase>
#include <QImage>
#include <QRawFont>
#include <QSettings>

class AssetsTest : public TestBase
{
    Q_OBJECT

private slots:
    void localeFileNamesRussian();
    void styleIsMaterialInThePalettesBlue();
    void markCanBeShownInAnyColour();
    void fontsHoldWhatTheInterfaceWrites_data();
    void fontsHoldWhatTheInterfaceWrites();
    void licencesAreThere_data();
    void licencesAreThere();
    void ownTextsAreThere();

private:
    static QByteArray contentOf(const QString &path);
};

QByteArray AssetsTest::contentOf(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

void AssetsTest::localeFileNamesRussian()
{
    QCOMPARE(contentOf(":/ondira.locale"), QByteArray("ru_RU\n"));
}

void AssetsTest::styleIsMaterialInThePalettesBlue()
{
    const QSettings style(":/qtquickcontrols2.conf", QSettings::IniFormat);

    QCOMPARE(style.value("Controls/Style").toString(), QString("Material"));
    QCOMPARE(style.value("Material/Theme").toString(), QString("Light"));
    QCOMPARE(style.value("Material/Accent").toString(), QString("#1483dc"));
    QCOMPARE(style.value("Material/Primary").toString(), QString("#1483dc"));
    QCOMPARE(style.value("Material/Font/Family").toString(), QString("Roboto"));
}

void AssetsTest::markCanBeShownInAnyColour()
{
    const QImage mark(":/images/OndiraLogo.png");
    QCOMPARE(mark.size(), QSize(512, 512));
    QCOMPARE(mark.pixelColor(0, 0).alpha(), 0);
    QCOMPARE(mark.pixelColor(256, 188).alpha(), 0); // the light is cut out
    QCOMPARE(mark.pixelColor(256, 30), QColor("#1483dc"));

    int opaque = 0;
    for (int y = 0; y < mark.height(); ++y) {
        for (int x = 0; x < mark.width(); ++x)
            opaque += mark.pixelColor(x, y).alpha() == 255;
    }
    QVERIFY(opaque > 512 * 512 / 2);
}

void AssetsTest::fontsHoldWhatTheInterfaceWrites_data()
{
    QTest::addColumn<QString>("family");

    QTest::newRow("Roboto-Regular") << "Roboto";
    QTest::newRow("Roboto-Medium") << "Roboto";
    QTest::newRow("Roboto-Bold") << "Roboto";
    QTest::newRow("Manrope-Bold") << "Manrope";
    QTest::newRow("Play-Regular") << "Play";
    QTest::newRow("Play-Bold") << "Play";
    QTest::newRow("NotoMono-Regular") << "Noto Mono";
}

void AssetsTest::fontsHoldWhatTheInterfaceWrites()
{
    QFETCH(QString, family);
    const QString path = QString(":/fonts/%1.ttf").arg(QTest::currentDataTag());

    const int id = QFontDatabase::addApplicationFont(path);
    QVERIFY(id >= 0);
    QVERIFY2(QFontDatabase::applicationFontFamilies(id).contains(family),
             qPrintable(QFontDatabase::applicationFontFamilies(id).join(", ")));

    const QRawFont font(path, 16);
    QVERIFY(font.isValid());
    for (const QChar letter : QString("АЯаяЁё№°²·•—AZaz09%"))
        QVERIFY2(font.supportsCharacter(letter), qPrintable(QString(letter)));
}

void AssetsTest::licencesAreThere_data()
{
    QTest::addColumn<QByteArray>("text");

    QTest::newRow("Roboto") << QByteArray("License: Apache-2.0");
    QTest::newRow("Apache License 2.0") << QByteArray("TERMS AND CONDITIONS FOR USE, REPRODUCTION, AND DISTRIBUTION");
    QTest::newRow("Material design icons") << QByteArray("Apache License");
    QTest::newRow("Manrope") << QByteArray("SIL OPEN FONT LICENSE");
    QTest::newRow("Play") << QByteArray("SIL OPEN FONT LICENSE");
    QTest::newRow("NotoMono") << QByteArray("SIL OPEN FONT LICENSE");
    QTest::newRow("libzmq3-dev") << QByteArray("LGPL-3.0+");
    QTest::newRow("libsimdjson-dev") << QByteArray("Apache-2.0");
    QTest::newRow("libsqlite3-0") << QByteArray("public domain");
    QTest::newRow("zlib1g-dev") << QByteArray("as-is");
}

void AssetsTest::licencesAreThere()
{
    QFETCH(QByteArray, text);
    const QByteArray all = contentOf(":/licenses/third_party.txt");
    const QByteArray heading = QByteArray("======== ") + QTest::currentDataTag() + " ========";
    const int from = all.indexOf(heading);

    QVERIFY(from >= 0);
    const int to = all.indexOf("\n======== ", from + heading.size());
    QVERIFY(all.mid(from, to - from).toUpper().contains(text.toUpper()));
}

void AssetsTest::ownTextsAreThere()
{
    QVERIFY(contentOf(":/licenses/license.txt").contains("GNU GENERAL PUBLIC LICENSE"));
    QVERIFY(contentOf(":/licenses/third_party.txt").contains("Boost Software License - Version 1.0"));
    QVERIFY(contentOf(":/changelog/changelog.txt").contains("## 4.5.2"));
}

ONDIRA_TEST(AssetsTest)
#include "AssetsTest.moc"
