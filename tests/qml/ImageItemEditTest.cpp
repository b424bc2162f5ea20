// SPDX-License-Identifier: GPL-3.0-or-later
#include "data/Records.h"
#include "qml/Stage.h"
#include "support/TestBase.h"

class ImageItemEditTest : public TestBase
{
    Q_OBJECT

private:
    static Model::ImageItem image(uint n)
    {
        Model::ImageItem image;
        image.uid = Records::uid(n);
        image.partUid = Records::uid(1);
        image.name = "План";
        image.x = 32;
        image.width = 640;
        image.opacity = 0.5;
        image.onTop = true;
        return image;
    }

    static QObject *show(Stage &stage, uint n)
    {
        stage.publishSite(1);
        stage.link.publishImageItems({image(51)});
        stage.show("Dialog { objectName: \"dialog\"; width: 480; ImageItemEdit { uid: \"" + Records::text(n).toUtf8()
                   + "\" } }");
        auto *dialog = stage.object("dialog");
        QMetaObject::invokeMethod(dialog, "open");
        stage.settle();
        return dialog;
    }

private slots:
    void showsThePicture()
    {
        Stage stage;
        show(stage, 51);

        QCOMPARE(stage.text("nameField"), QString("План"));
        QCOMPARE(stage.item("onTopBox")->property("checked").toBool(), true);
        QCOMPARE(stage.item("opacitySlider")->property("value").toDouble(), 0.5);
        QCOMPARE(stage.item("opacitySlider")->property("from").toDouble(), 0.0);
        QCOMPARE(stage.item("opacitySlider")->property("to").toDouble(), 1.0);
    }

    void savesWhatWasChanged()
    {
        Stage stage;
        auto *dialog = show(stage, 51);
        stage.click("nameField");
        stage.key(Qt::Key_A, Qt::ControlModifier);
        stage.type("Фасад");
        stage.click("onTopBox");
        stage.item("opacitySlider")->forceActiveFocus();
        stage.key(Qt::Key_Left);
        stage.click("positiveButton");

        QTRY_VERIFY(!dialog->property("visible").toBool());
        QCOMPARE(stage.link.operations.last(), QString("changeImageItem"));
        auto expected = image(51);
        expected.name = "Фасад";
        expected.onTop = false;
        expected.opacity = stage.link.imageItems.back().opacity;
        QVERIFY(qAbs(expected.opacity - 0.49) < 0.001);
        QVERIFY(stage.link.imageItems.back() == expected);
    }

    void aPictureThatGoesMeanwhileIsLeftAlone()
    {
        Stage stage;
        show(stage, 51);

        stage.link.publishImageItems({});
        stage.click("positiveButton");

        QVERIFY(!stage.link.operations.contains("changeImageItem"));
    }

    void aPictureThatIsNotThereShowsNothing()
    {
        Stage stage;
        show(stage, 99);

        QCOMPARE(stage.text("nameField"), QString());
        stage.click("positiveButton");
        QVERIFY(!stage.link.operations.contains("changeImageItem"));
    }
};

ONDIRA_TEST(ImageItemEditTest)
#include "ImageItemEditTest.moc"
