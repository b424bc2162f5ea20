// SPDX-License-Identifier: GPL-3.0-or-later
#include "shell/IconSet.h"
#include "support/TestBase.h"

#include <QFile>
#include <QSet>

class IconSetTest : public TestBase
{
    Q_OBJECT

private slots:
    void knowsItsIcons()
    {
        IconSet icons;

        QVERIFY(icons.contains("navigation/menu"));
        QVERIFY(icons.contains("device/signal_wifi_0_bar"));
        QVERIFY(icons.contains("action/3d_rotation"));
        QCOMPARE(icons.url("navigation/menu"), QString("qrc:/icons/material/navigation/menu.svg"));
        QVERIFY(QFile::exists(":/icons/material/navigation/menu.svg"));
    }

    void leavesAddresses_data()
    {
        QTest::addColumn<QString>("name");

        for (const char *name : {"", "qrc:/images/OndiraLogo.png", "image://image_layer/x", "file:///tmp/x.svg"})
            QTest::newRow(name) << name;
    }

    void leavesAddresses()
    {
        QFETCH(QString, name);
        IconSet icons;

        QCOMPARE(icons.url(name), name);
        QVERIFY(!icons.contains(name));
    }

    void unknownNamesAreWarnedOfOnce_data()
    {
        QTest::addColumn<QString>("name");

        for (const char *name :
             {"navigation/nothing", "menu", "../../translations/frontend_en", "navigation/../navigation/menu",
              "navigation/", "/menu", "Navigation/Menu", "navigation/menu.svg", " ", "я/я"})
            QTest::newRow(name) << name;
        QTest::newRow("long") << QString(1 << 20, 'x') + "/" + QString(1 << 20, 'x');
        QTest::newRow("zero") << QString("navigation/menu") + QChar(0);
    }

    void unknownNamesAreWarnedOfOnce()
    {
        QFETCH(QString, name);
        IconSet icons;
        expectMessage(QtWarningMsg, "There is no icon");

        QCOMPARE(icons.url(name), QString());

        QCOMPARE(icons.url(name), QString()); // a second warning would fail the test
        QVERIFY(!icons.contains(name));
    }

    void manyUnknownNamesDoNotFloodTheLog()
    {
        IconSet icons;
        for (int i = 0; i < 100; ++i)
            expectMessage(QtWarningMsg, "There is no icon");

        for (int i = 0; i < 1000; ++i)
            QCOMPARE(icons.url(QString("x/%1").arg(i)), QString());
    }

    void listsAllOnce()
    {
        IconSet icons;

        const auto names = icons.names();

        QVERIFY(names.size() >= 960);
        QCOMPARE(QSet<QString>(names.begin(), names.end()).size(), names.size());
        for (const auto &name : names)
            QVERIFY2(icons.contains(name), qPrintable(name));
        QVERIFY(names.contains("alert/add_alert"));
        QVERIFY(names.contains("toggle/star_half"));
        QVERIFY(names.indexOf("alert/add_alert") < names.indexOf("toggle/star_half"));
    }
};

ONDIRA_TEST(IconSetTest)
#include "IconSetTest.moc"
