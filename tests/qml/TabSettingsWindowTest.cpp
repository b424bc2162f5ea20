// SPDX-License-Identifier: GPL-3.0-or-later
#include "qml/Stage.h"
#include "support/TestBase.h"

class TabSettingsWindowTest : public TestBase
{
    Q_OBJECT

private:
    static QQuickItem *show(Stage &stage)
    {
        return stage.show("TabSettingsWindow { width: 400; property int times: 0; onAccepted: ++times }");
    }

private slots:
    void needsANameAndAnAddress_data()
    {
        QTest::addColumn<QString>("name");
        QTest::addColumn<QString>("address");
        QTest::addColumn<bool>("acceptable");

        QTest::newRow("nothing") << ""
                                 << "" << false;
        QTest::newRow("name alone") << "Дом"
                                    << "" << false;
        QTest::newRow("address alone") << ""
                                       << "127.0.0.1" << false;
        QTest::newRow("both") << "Дом"
                              << "127.0.0.1" << true;
        QTest::newRow("blank address") << "Дом"
                                       << "  \t" << false;
        QTest::newRow("blank name") << "  "
                                    << "127.0.0.1" << false;
        QTest::newRow("blanks around") << " Дом "
                                       << " server.local " << true;
    }

    void needsANameAndAnAddress()
    {
        QFETCH(QString, name);
        QFETCH(QString, address);
        Stage stage;
        auto *form = show(stage);

        form->setProperty("name", name);
        form->setProperty("address", address);

        QTEST(form->property("acceptable").toBool(), "acceptable");
        QCOMPARE(form->property("name").toString(), name);
        form->setProperty("login", "admin");
        form->setProperty("password", "");
        QTEST(form->property("acceptable").toBool(), "acceptable");
    }

    void isFilledByKeyboardInOrder()
    {
        Stage stage;
        auto *form = show(stage);
        QMetaObject::invokeMethod(form, "clear");
        QCOMPARE(stage.focusName(), QString("nameField"));

        for (const auto *text : {"Дом", "10.0.0.1", "admin", "секрет"}) {
            stage.type(text);
            stage.key(Qt::Key_Tab);
        }

        QCOMPARE(form->property("name").toString(), QString("Дом"));
        QCOMPARE(form->property("address").toString(), QString("10.0.0.1"));
        QCOMPARE(form->property("login").toString(), QString("admin"));
        QCOMPARE(form->property("password").toString(), QString("секрет"));
        QCOMPARE(stage.item("passwordField")->property("displayText").toString(), QString(6, QChar(0x25cf)));
    }

    void enterInAnyFieldSubmits_data()
    {
        QTest::addColumn<QString>("field");

        for (const auto *field : {"nameField", "addressField", "loginField", "passwordField"})
            QTest::newRow(field) << field;
    }

    void enterInAnyFieldSubmits()
    {
        QFETCH(QString, field);
        Stage stage;
        auto *form = show(stage);
        stage.item(field)->forceActiveFocus();

        stage.key(Qt::Key_Return);
        stage.key(Qt::Key_Enter);

        QCOMPARE(form->property("times").toInt(), 2);
    }

    void clearsAll()
    {
        Stage stage;
        auto *form = show(stage);
        for (const auto *property : {"name", "address", "login", "password"})
            form->setProperty(property, "x");
        stage.item("loginField")->forceActiveFocus();

        QMetaObject::invokeMethod(form, "clear");

        for (const auto *property : {"name", "address", "login", "password"})
            QCOMPARE(form->property(property).toString(), QString());
        QCOMPARE(stage.focusName(), QString("nameField"));
    }

    void fillsAll()
    {
        Stage stage;
        auto *form = show(stage);

        QMetaObject::invokeMethod(form, "fill", Q_ARG(QVariant, "a"), Q_ARG(QVariant, "b"), Q_ARG(QVariant, "c"),
                                  Q_ARG(QVariant, QString(10000, 'd')));

        QCOMPARE(form->property("name").toString(), QString("a"));
        QCOMPARE(form->property("address").toString(), QString("b"));
        QCOMPARE(form->property("login").toString(), QString("c"));
        QCOMPARE(form->property("password").toString().size(), 10000);
    }
};

ONDIRA_TEST(TabSettingsWindowTest)
#include "TabSettingsWindowTest.moc"
