// SPDX-License-Identifier: GPL-3.0-or-later
#include "layers/PictureRules.h"
#include "layers/MadeUpTree.h"
#include "support/TestBase.h"

class PictureRulesTest : public TestBase
{
    Q_OBJECT

private:
    // One page, with a picture.
    static void writeTree(const MadeUpTree &tree)
    {
        tree.write(
            "qml/main.qml",
            "EM.StackNavigator {\n    EM.StackItem {\n        link: \"plan\"\n\n        PlanPage {}\n    }\n}\n");
        tree.write("tests/tour/GalleryPlan.cpp", "takeBoth(\"plan\", \"PlanPage\");\n");
    }

private slots:
    void aTreeWithAllPicturesKeepsTheRule()
    {
        MadeUpTree tree;
        writeTree(tree);

        QCOMPARE(PictureRules(tree.root()).screens(), QStringList{"PlanPage"});
        QCOMPARE(PictureRules(tree.root()).violations(), QStringList());
    }

    void aPageOfTheNavigatorWithoutPicture()
    {
        MadeUpTree tree;
        writeTree(tree);
        tree.write("qml/main.qml",
                   "EM.StackItem {\n  link: \"plan\"\n  PlanPage {}\n}\n"
                   "EM.StackItem {\n  link: \"map\"\n  level: 2\n  Map3D {}\n}\n");

        QCOMPARE(PictureRules(tree.root()).violations(), QStringList{"Map3D has no picture"});
    }

    void aLinkWhosePageCannotBeRead()
    {
        MadeUpTree tree;
        writeTree(tree);
        tree.write("qml/main.qml", "EM.StackItem {\n  link: \"plan\"\n  component: made()\n}\n");

        QCOMPARE(PictureRules(tree.root()).violations().size(), 1);
    }

    void aFileWithoutPicture_data()
    {
        QTest::addColumn<QString>("file");
        QTest::addColumn<QStringList>("expected");

        const auto missing = [](const char *type) { return QStringList{QString(type) + " has no picture"}; };
        QTest::newRow("page") << "qml/mainView/pages/ChartPage.qml" << missing("ChartPage");
        QTest::newRow("dialog") << "qml/editors/LampDialog.qml" << missing("LampDialog");
        QTest::newRow("dialog with more to its name")
            << "qml/editors/LampDialogLoader.qml" << missing("LampDialogLoader");
        QTest::newRow("screen") << "qml/screens/ChartScreen.qml" << missing("ChartScreen");
        QTest::newRow("popup") << "qml/controls/deep/HintPopup.qml" << missing("HintPopup");
        QTest::newRow("drawer") << "qml/mainView/LampsDrawer.qml" << missing("LampsDrawer");
        QTest::newRow("with a picture") << "qml/mainView/pages/PlanPage.qml" << QStringList();
        QTest::newRow("the base of pages") << "qml/Fluid/Controls/Page.qml" << QStringList();
        QTest::newRow("no screen") << "qml/tiles/LampTile.qml" << QStringList();
        QTest::newRow("no QML") << "qml/editors/LampDialog.txt" << QStringList();
    }

    void aFileWithoutPicture()
    {
        QFETCH(QString, file);
        QFETCH(QStringList, expected);
        MadeUpTree tree;
        writeTree(tree);
        tree.write(file, "Item {}\n");

        QCOMPARE(PictureRules(tree.root()).violations(), expected);
    }

    void aNameCountsAsAWholeAndInTheGalleryOnly()
    {
        MadeUpTree tree;
        writeTree(tree);
        tree.write("qml/editors/LampDialog.qml", "Item {}\n");
        tree.write("tests/tour/Gallery.cpp", "\"ALampDialog\" \"LampDialogs\" \"a LampDialog\"\n");
        tree.write("tests/tour/Tour.cpp", "\"LampDialog\"\n");

        QCOMPARE(PictureRules(tree.root()).violations(), QStringList{"LampDialog has no picture"});
    }

    void everyScreenOfThisTreeHasAPicture()
    {
        const PictureRules rules(QStringLiteral(ONDIRA_SOURCE_ROOT));

        const auto violations = rules.violations();

        QVERIFY2(violations.isEmpty(), qPrintable(violations.join('\n')));
        // A rule that finds no screens would hold as well.
        QVERIFY(rules.screens().size() > 20);
        QVERIFY(rules.screens().contains("DesktopPage"));
    }
};

ONDIRA_TEST(PictureRulesTest)
#include "PictureRulesTest.moc"
