// SPDX-License-Identifier: GPL-3.0-or-later
#include "shell/VersionController.h"
#include "support/TestBase.h"

class VersionControllerTest : public TestBase
{
    Q_OBJECT

private slots:
    void tellsTheVersion();
    void comparesVersions_data();
    void comparesVersions();
};

void VersionControllerTest::tellsTheVersion()
{
    VersionController controller;

    QCOMPARE(controller.version(), QString("4.5.2"));
    QCOMPARE(controller.revision(), QString("N/A"));
    QCOMPARE(controller.verboseVersion(), QString("Ondira Smart 4.5.2"));
    QCOMPARE(controller.versionMajor(), 4);
    QCOMPARE(controller.versionMinor(), 5);
    QCOMPARE(controller.versionPatch(), 2);
}

void VersionControllerTest::comparesVersions_data()
{
    QTest::addColumn<QList<int>>("numbers");
    QTest::addColumn<int>("expected");

    QTest::newRow("equal") << QList<int>{4, 5, 2, 4, 5, 2} << 0;
    QTest::newRow("newer patch") << QList<int>{4, 5, 3, 4, 5, 2} << 1;
    QTest::newRow("older patch") << QList<int>{4, 5, 1, 4, 5, 2} << -1;
    QTest::newRow("minor before patch") << QList<int>{4, 6, 0, 4, 5, 9} << 1;
    QTest::newRow("major before minor") << QList<int>{3, 9, 9, 4, 0, 0} << -1;
    QTest::newRow("numbers, not texts") << QList<int>{4, 10, 0, 4, 9, 0} << 1;
    QTest::newRow("nothing known") << QList<int>{0, 0, 0, 0, 0, 0} << 0;
}

void VersionControllerTest::comparesVersions()
{
    QFETCH(QList<int>, numbers);
    QFETCH(int, expected);

    const int result = VersionController::compareVersions(numbers.at(0), numbers.at(1), numbers.at(2), numbers.at(3),
                                                          numbers.at(4), numbers.at(5));

    QCOMPARE((result > 0) - (result < 0), expected);
}

ONDIRA_TEST(VersionControllerTest)
#include "VersionControllerTest.moc"
