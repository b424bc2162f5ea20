// SPDX-License-Identifier: GPL-3.0-or-later
// What the program carries in its resource root.
#include "support/TestBase.h"

#include <QFile>
#include <QFontDatabase>
#include <QImage>
#include <QImageReader>
#include <QRawFont>
#include <QSettings>

class AssetsTest : public TestBase
{
    Q_OBJECT

private slots:
    void localeFileNamesRussian();
    void styleIsMaterialInBlue();
    void markCanBeShownInAnyColour();
    void fontsHoldWhatTheInterfaceWrites_data();
    void fontsHoldWhatTheInterfaceWrites();
    void namesOfLayoutsHaveTheirLetters();
    void picturesOfThePlanJoinWithoutASeam_data();
    void picturesOfThePlanJoinWithoutASeam();
    void gridHasALineForEachStep();
    void handlesPointOutwards();
    void iconsOfTheSidebarAreDrawnWithinTheirSquare_data();
    void iconsOfTheSidebarAreDrawnWithinTheirSquare();
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

void AssetsTest::styleIsMaterialInBlue()
{
    const QSettings style(":/qtquickcontrols2.conf", QSettings::IniFormat);

    QCOMPARE(style.value("Controls/Style").toString(), QString("Material"));
    QCOMPARE(style.value("Material/Theme").toString(), QString("Light"));
    QCOMPARE(style.value("Material/Accent").toString(), QString("Blue"));
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

    QTest::newRow("Roboto-Regular.ttf") << "Roboto";
    QTest::newRow("Roboto-Medium.ttf") << "Roboto";
    QTest::newRow("Roboto-Bold.ttf") << "Roboto";
    QTest::newRow("GothamPro.ttf") << "Manrope";
    QTest::newRow("GothamPro-Bold.ttf") << "Manrope";
    QTest::newRow("MagistralC.ttf") << "Play";
    QTest::newRow("MagistralC-Bold.otf") << "Play";
    QTest::newRow("DroidSansMono.ttf") << "Noto Mono";
}

void AssetsTest::fontsHoldWhatTheInterfaceWrites()
{
    QFETCH(QString, family);
    const QString path = QString(":/fonts/") + QTest::currentDataTag();

    const int id = QFontDatabase::addApplicationFont(path);
    QVERIFY(id >= 0);
    QVERIFY2(QFontDatabase::applicationFontFamilies(id).contains(family),
             qPrintable(QFontDatabase::applicationFontFamilies(id).join(", ")));

    const QRawFont font(path, 16);
    QVERIFY(font.isValid());
    for (const QChar letter : QString("АЯаяЁё№°²·•—AZaz09%"))
        QVERIFY2(font.supportsCharacter(letter), qPrintable(QString(letter)));
}

void AssetsTest::namesOfLayoutsHaveTheirLetters()
{
    const QRawFont latin(QStringLiteral(":/fonts/Roboto-Regular.ttf"), 16);
    const QRawFont devanagari(QStringLiteral(":/fonts/Lohit-Devanagari.ttf"), 16);

    for (const auto *locale : {"en_GB", "ru_RU", "da_DK", "de_DE", "es_ES", "fi_FI", "fr_FR", "hi_IN", "it_IT", "nb_NO",
                               "pl_PL", "pt_PT", "ro_RO", "sv_SE"}) {
        const auto &font = qstrcmp(locale, "hi_IN") == 0 ? devanagari : latin;
        for (const QChar letter : QLocale(locale).nativeLanguageName())
            QVERIFY2(font.supportsCharacter(letter), locale);
    }
}

void AssetsTest::picturesOfThePlanJoinWithoutASeam_data()
{
    QTest::addColumn<int>("size");

    QTest::newRow("grid_32px") << 32;
    QTest::newRow("checkers_16px") << 16;
}

// Laid side by side, one half of the picture goes on where the other ends: nothing is blurred towards an edge.
void AssetsTest::picturesOfThePlanJoinWithoutASeam()
{
    QFETCH(int, size);
    const QImage picture(QString(":/images/%1.png").arg(QTest::currentDataTag()));

    QCOMPARE(picture.size(), QSize(size, size));
    int drawn = 0;
    for (int y = 0; y < size; ++y) {
        for (int x = 0; x < size; ++x) {
            const int alpha = picture.pixelColor(x, y).alpha();
            QVERIFY(alpha == 0 || alpha == 255);
            drawn += alpha == 255;
        }
    }
    QVERIFY(drawn > size);
    QVERIFY(drawn < size * size);
}

void AssetsTest::gridHasALineForEachStep()
{
    const QImage grid(":/images/grid_32px.png");

    for (const int line : {0, 16}) {
        QCOMPARE(grid.pixelColor(line, 5).alpha(), 255);
        QCOMPARE(grid.pixelColor(5, line).alpha(), 255);
    }
    QVERIFY(grid.pixelColor(0, 5) != grid.pixelColor(16, 5));
    QCOMPARE(grid.pixelColor(8, 8).alpha(), 0);
    QCOMPARE(grid.pixelColor(24, 24).alpha(), 0);
}

void AssetsTest::handlesPointOutwards()
{
    const auto drawnIn = [](const QImage &picture, const QRect &area) {
        int drawn = 0;
        for (int y = area.top(); y <= area.bottom(); ++y) {
            for (int x = area.left(); x <= area.right(); ++x)
                drawn += picture.pixelColor(x, y).alpha() > 128;
        }
        return drawn;
    };
    const QImage right(":/images/triangle_15x30.png");
    const QImage up(":/images/triangle_30x15.png");

    QCOMPARE(right.size(), QSize(15, 30));
    QCOMPARE(up.size(), QSize(30, 15));
    QVERIFY(drawnIn(right, {0, 0, 7, 30}) > 2 * drawnIn(right, {8, 0, 7, 30}));
    QVERIFY(drawnIn(up, {0, 8, 30, 7}) > 2 * drawnIn(up, {0, 0, 30, 7}));
    QCOMPARE(right.pixelColor(4, 15), QColor(Qt::white));
    QCOMPARE(up.pixelColor(15, 11), QColor(Qt::white));
}

void AssetsTest::iconsOfTheSidebarAreDrawnWithinTheirSquare_data()
{
    QTest::addColumn<QString>("path");

    for (const char *name : {"3dview", "bar-chart", "config", "grid", "wrench"})
        QTest::newRow(name) << QString(":/icons/ondira/%1.svg").arg(name);
}

void AssetsTest::iconsOfTheSidebarAreDrawnWithinTheirSquare()
{
    QFETCH(QString, path);
    QImageReader reader(path, "svg");
    QCOMPARE(reader.size(), QSize(24, 24));
    reader.setScaledSize({96, 96});
    const QImage icon = reader.read();

    QVERIFY2(!icon.isNull(), qPrintable(reader.errorString()));
    QRect drawn;
    int opaque = 0;
    for (int y = 0; y < icon.height(); ++y) {
        for (int x = 0; x < icon.width(); ++x) {
            if (icon.pixelColor(x, y).alpha() == 0)
                continue;
            drawn |= QRect(x, y, 1, 1);
            opaque += icon.pixelColor(x, y).alpha() == 255;
        }
    }
    QVERIFY(QRect(4, 4, 88, 88).contains(drawn)); // a margin of one unit
    QVERIFY(drawn.width() >= 60 && drawn.height() >= 60);
    QVERIFY(opaque > 96 * 96 / 12);
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
    QTest::newRow("Lohit") << QByteArray("Open Font License (OFL)");
    QTest::newRow("libzmq3-dev") << QByteArray("LGPL-3.0+");
    QTest::newRow("libsimdjson-dev") << QByteArray("Apache-2.0");
    QTest::newRow("libsqlite3-0") << QByteArray("public domain");
    QTest::newRow("zlib1g-dev") << QByteArray("as-is");
    QTest::newRow("Material design icons") << QByteArray("Apache License");
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
