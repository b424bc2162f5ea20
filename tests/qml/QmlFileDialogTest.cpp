// SPDX-License-Identifier: GPL-3.0-or-later
#include "qml/Stage.h"
#include "shell/QmlFileDialogHelper.h"
#include "support/TestBase.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <QUrl>
#include <algorithm>

class QmlFileDialogTest : public TestBase
{
    Q_OBJECT

private:
    QTemporaryDir m_folder;

    QString path(const QString &name) const { return m_folder.path() + '/' + name; }

    static void write(const QString &file, int size)
    {
        QFile target(file);
        QVERIFY(target.open(QIODevice::WriteOnly));
        QCOMPARE(target.write(QByteArray(size, 'x')), qint64(size));
    }

    QObject *show(Stage &stage, const QByteArray &properties = QByteArray(), const QSize &size = {1280, 800}) const
    {
        stage.show("property var chosen: []\n"
                   "QmlFileDialog { objectName: \"dialog\"; folder: \""
                       + QUrl::fromLocalFile(m_folder.path()).toEncoded() + "\"\n" + properties
                       + "\nonFileSelected: chosen = chosen.concat(fileName) }",
                   size);
        auto *dialog = stage.window() ? stage.object("dialog") : nullptr;
        if (dialog)
            QMetaObject::invokeMethod(dialog, "open");
        if (dialog && !Stage::waitFor([&] { return dialog->property("opened").toBool(); }))
            return nullptr;
        return dialog;
    }

    static QVariantList chosen(const Stage &stage)
    {
        return stage.window()->property("chosen").value<QJSValue>().toVariant().toList();
    }

    // The rows from the first to the last.
    static QStringList rows(const Stage &stage)
    {
        auto found = stage.items([](QQuickItem *item) { return item->objectName() == "listItemText"; });
        std::sort(found.begin(), found.end(), [](QQuickItem *first, QQuickItem *second) {
            return first->mapToScene({0, 0}).y() < second->mapToScene({0, 0}).y();
        });
        QStringList texts;
        for (auto *item : found)
            texts << item->property("text").toString();
        return texts;
    }

    static QQuickItem *row(const Stage &stage, const QString &text)
    {
        const auto found = stage.items([&](QQuickItem *item) {
            return item->objectName() == "listItemText" && item->property("text").toString() == text;
        });
        return found.empty() ? nullptr : found.front();
    }

    static QString format(const Stage &stage, const QVariant &size)
    {
        QVariant answer;
        QMetaObject::invokeMethod(stage.object("dialog"), "formatSize", Q_RETURN_ARG(QVariant, answer),
                                  Q_ARG(QVariant, size));
        return answer.toString();
    }

private slots:
    void initTestCase()
    {
        QVERIFY(m_folder.isValid());
        QVERIFY(QDir(m_folder.path()).mkpath("plans #1/100%"));
        QVERIFY(QDir(m_folder.path()).mkpath("empty"));
        write(path("a.txt"), 1536);
        write(path("b.png"), 10);
        write(path("plain"), 1);
        write(path(".hidden.txt"), 5);
        write(path("plans #1/100%/inner.txt"), 3);
    }

    void formatsSizes_data()
    {
        QTest::addColumn<double>("size");
        QTest::addColumn<QString>("text");

        QTest::newRow("nothing") << 0.0 << "0 б";
        QTest::newRow("below a unit") << 1023.0 << "1023 б";
        QTest::newRow("a unit") << 1024.0 << "1 Кб";
        QTest::newRow("one and a half") << 1536.0 << "1.5 Кб";
        QTest::newRow("two places") << 1300.0 << "1.27 Кб";
        QTest::newRow("mega") << 1048576.0 << "1 Мб";
        QTest::newRow("giga") << 1073741824.0 << "1 Гб";
        QTest::newRow("tera") << 1099511627776.0 << "1 Тб";
        QTest::newRow("beyond") << 1125899906842624.0 << "1 Пб";
        QTest::newRow("far beyond") << 1125899906842624.0 * 4096 << "4096 Пб";
    }

    void formatsSizes()
    {
        QFETCH(double, size);
        Stage stage;
        QVERIFY(show(stage));

        QTEST(format(stage, size), "text");
    }

    void listsFoldersFirst()
    {
        Stage stage;
        QVERIFY(show(stage));

        QTRY_COMPARE(rows(stage), QStringList({"empty", "plans #1", ".hidden.txt", "a.txt", "b.png"}));
        QCOMPARE(stage.text("pathLabel"), m_folder.path());
        QVERIFY(stage.text("listItemSubText") != "(none)");
    }

    void listsWhatTheFilterTakes()
    {
        Stage stage;
        QVERIFY(show(stage, "nameFilters: [\"*.png\", \"*.jpg\"]; showHidden: false"));

        QTRY_COMPARE(rows(stage), QStringList({"empty", "plans #1", "b.png"}));
    }

    void picksAFile()
    {
        Stage stage;
        auto *dialog = show(stage);
        QTRY_VERIFY(row(stage, "a.txt"));
        QVERIFY(!stage.item("positiveButton")->isEnabled());

        stage.click(row(stage, "a.txt"));
        QVERIFY(stage.item("positiveButton")->isEnabled());
        QCOMPARE(chosen(stage), QVariantList());
        stage.click("positiveButton");

        QCOMPARE(chosen(stage), QVariantList({path("a.txt")}));
        QTRY_VERIFY(!dialog->property("visible").toBool());
    }

    void cancellingPicksNothing()
    {
        Stage stage;
        auto *dialog = show(stage);
        QTRY_VERIFY(row(stage, "a.txt"));
        stage.click(row(stage, "a.txt"));

        stage.click("negativeButton");

        QTRY_VERIFY(!dialog->property("visible").toBool());
        QCOMPARE(chosen(stage), QVariantList());
    }

    void entersFoldersWithAnyName()
    {
        Stage stage;
        auto *dialog = show(stage);
        QTRY_VERIFY(row(stage, "plans #1"));
        stage.click(row(stage, "plans #1"));
        QTRY_COMPARE(rows(stage), QStringList("100%"));
        stage.click(row(stage, "100%"));
        QTRY_COMPARE(rows(stage), QStringList("inner.txt"));
        QCOMPARE(stage.text("pathLabel"), path("plans #1/100%"));

        stage.click("upButton");
        QTRY_COMPARE(rows(stage), QStringList("100%"));
        stage.click(row(stage, "100%"));
        QTRY_VERIFY(row(stage, "inner.txt"));
        stage.click(row(stage, "inner.txt"));
        stage.click("positiveButton");

        QTRY_VERIFY(!dialog->property("visible").toBool());
        QCOMPARE(chosen(stage), QVariantList({path("plans #1/100%/inner.txt")}));
    }

    void keysEnterAndPick()
    {
        Stage stage;
        auto *dialog = show(stage);
        QTRY_COMPARE(rows(stage).size(), 5);
        QVERIFY(stage.item("files")->hasActiveFocus());

        stage.key(Qt::Key_Down);
        stage.key(Qt::Key_Return);
        QTRY_COMPARE(rows(stage), QStringList("100%"));
        stage.key(Qt::Key_Backspace);
        QTRY_COMPARE(rows(stage).size(), 5);
        for (int i = 0; i < 3; ++i)
            stage.key(Qt::Key_Down);
        stage.key(Qt::Key_Return);
        stage.key(Qt::Key_Return);

        QTRY_VERIFY(!dialog->property("visible").toBool());
        QCOMPARE(chosen(stage), QVariantList({path("a.txt")}));
    }

    void aFolderWithoutFilesSaysSo()
    {
        Stage stage;
        QVERIFY(show(stage));
        QTRY_VERIFY(row(stage, "empty"));
        QVERIFY(!stage.has("noFiles"));

        stage.click(row(stage, "empty"));

        QTRY_VERIFY(stage.has("noFiles"));
    }

    void aFolderThatIsNotThereIsEmpty()
    {
        Stage stage;
        auto *dialog = show(stage);

        dialog->setProperty("folder", QUrl::fromLocalFile(path("gone/away")));

        QTRY_VERIFY(stage.has("noFiles"));
        QVERIFY(!stage.item("positiveButton")->isEnabled());
    }

    void movesUpAsFarAsTheRoot()
    {
        Stage stage;
        auto *dialog = show(stage);
        QTRY_VERIFY(dialog->property("canMoveUp").toBool());

        for (int i = 0; i < 20 && dialog->property("canMoveUp").toBool(); ++i) {
            QMetaObject::invokeMethod(dialog, "moveUp");
            stage.settle();
        }

        QTRY_COMPARE(stage.text("pathLabel"), QString("/"));
        QVERIFY(!dialog->property("canMoveUp").toBool());
        QVERIFY(!stage.item("upButton")->isEnabled());
        QMetaObject::invokeMethod(dialog, "moveUp");
        QCOMPARE(stage.text("pathLabel"), QString("/"));
    }

    void drivesAreAboveTheRoots()
    {
        Stage stage;
        auto *dialog = show(stage, "hasDrives: true");
        dialog->setProperty("folder", QUrl("file:///"));
        QTRY_VERIFY(dialog->property("canMoveUp").toBool());

        stage.click("upButton");

        QCOMPARE(stage.text("pathLabel"), QString("Диски"));
        QTRY_COMPARE(rows(stage), QmlFileDialogHelper().getDrives());
        QVERIFY(!dialog->property("canMoveUp").toBool());
        stage.click(row(stage, "/"));
        QVERIFY(stage.text("pathLabel") != "Диски");
        QVERIFY(dialog->property("canMoveUp").toBool());
    }

    void sorts()
    {
        Stage stage;
        QVERIFY(show(stage, "nameFilters: [\"*.txt\", \"*.png\"]; showHidden: false"));
        QTRY_COMPARE(rows(stage), QStringList({"empty", "plans #1", "a.txt", "b.png"}));

        stage.click("sortButton");
        QTRY_VERIFY(stage.object("sortMenu")->property("opened").toBool());
        stage.click("sortReversed");
        QTRY_COMPARE(rows(stage), QStringList({"plans #1", "empty", "b.png", "a.txt"}));
        QTRY_VERIFY(!stage.object("sortMenu")->property("visible").toBool());
        stage.click("sortButton");
        QTRY_VERIFY(stage.object("sortMenu")->property("opened").toBool());
        QVERIFY(stage.item("sortByName")->property("checked").toBool());
        stage.click("sortBySize");

        QTRY_VERIFY(!stage.object("sortMenu")->property("visible").toBool());
        QTRY_COMPARE(rows(stage).mid(2), QStringList({"b.png", "a.txt"}));
    }

    void theHelperNamesTheRoots()
    {
        QStringList roots;
        for (const auto &drive : QDir::drives())
            roots << drive.absoluteFilePath();

        QVERIFY(!roots.isEmpty());
        QCOMPARE(QmlFileDialogHelper().getDrives(), roots);
    }

    void fitsATelephone()
    {
        Stage stage;
        QVERIFY(show(stage, QByteArray(), {360, 640}));

        for (const char *name : {"files", "sortButton", "upButton", "positiveButton", "negativeButton"}) {
            auto *item = stage.item(name);
            QVERIFY2(item, name);
            QVERIFY2(QRectF(0, 0, 360, 640).contains(item->mapRectToScene(item->boundingRect())), name);
        }
    }
};

ONDIRA_TEST(QmlFileDialogTest)
#include "QmlFileDialogTest.moc"
