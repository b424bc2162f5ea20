// SPDX-License-Identifier: GPL-3.0-or-later
#include "data/Records.h"
#include "qml/Stage.h"
#include "support/TestBase.h"

#include <QFile>
#include <QTemporaryDir>
#include <QUrl>

using namespace Records;

// What the menu of the plan of part 1 adds at the click, (700, 300) of the canvas.
class ShopAddMenuTest : public TestBase
{
    Q_OBJECT

private:
    static void openMenu(Stage &stage)
    {
        stage.show("ShopScreen { objectName: 'screen'; width: 1000; height: 600; uid: '" + text(1).toUtf8() + "' }");
        QTRY_VERIFY(stage.has("zoomArea"));
        stage.publishSite(0);
        stage.shop.enableEditing(true);
        stage.settle();
        stage.link.operations.clear();
        stage.clickAt({700, 300});
        QTRY_VERIFY(stage.has("addZone"));
        stage.settle();
    }

    static void add(Stage &stage, const char *entry)
    {
        openMenu(stage);
        stage.click(entry);
    }

private slots:
    void aButton()
    {
        Stage stage;
        add(stage, "addButton");

        QCOMPARE(stage.link.operations, QStringList({"addButtons"}));
        const auto &sent = stage.link.buttons.at(0);
        QCOMPARE(QRectF(sent.position.x, sent.position.y, sent.width, sent.height), QRectF(704, 304, 80, 80));
        QCOMPARE(sent.partUid, uid(1));
        QCOMPARE(sent.name, QString("Кнопка"));
        QVERIFY(QColor(sent.onColor).isValid());
        QVERIFY(QColor(sent.offColor).isValid());
        QVERIFY(sent.onColor != sent.offColor);
    }

    void anIndicator()
    {
        Stage stage;
        add(stage, "addIndicator");

        QCOMPARE(stage.link.operations, QStringList({"addIndicators"}));
        const auto &sent = stage.link.indicators.at(0);
        QCOMPARE(QRectF(sent.position.x, sent.position.y, sent.width, sent.height), QRectF(704, 304, 256, 80));
        QCOMPARE(sent.partUid, uid(1));
        QCOMPARE(sent.label, QString("Индикатор"));
    }

    void aPictureOfAnyFileName()
    {
        QTemporaryDir folder;
        const QString path = folder.filePath("План 100% #1?.png");
        QFile file(path);
        QVERIFY(file.open(QIODevice::WriteOnly));
        file.write("picture");
        file.close();
        Stage stage;
        add(stage, "addImage");
        auto *dialog = stage.object("imageFileDialog");
        QTRY_VERIFY(dialog->property("opened").toBool());
        QVERIFY(stage.link.operations.isEmpty());

        QMetaObject::invokeMethod(dialog, "fileSelected", Q_ARG(QString, path));

        QCOMPARE(stage.link.operations, QStringList({"addImageItem"}));
        const auto &sent = stage.link.imageItems.at(0);
        QCOMPARE(QPointF(sent.x, sent.y), QPointF(704, 304));
        QCOMPARE(sent.partUid, uid(1));
        QCOMPARE(sent.name, QString("План 100% #1?.png"));
    }

    void escapeAddsNothing()
    {
        Stage stage;
        openMenu(stage);

        stage.key(Qt::Key_Escape);
        QTRY_VERIFY(!stage.has("addZone"));

        QVERIFY(stage.link.operations.isEmpty());
    }
};

ONDIRA_TEST(ShopAddMenuTest)
#include "ShopAddMenuTest.moc"
