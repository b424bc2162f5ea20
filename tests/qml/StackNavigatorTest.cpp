// SPDX-License-Identifier: GPL-3.0-or-later
#include "qml/Stage.h"
#include "support/TestBase.h"

// Pages by their links: what is found, what is kept, what is made anew, and at which depth each one lives.
class StackNavigatorTest : public TestBase
{
    Q_OBJECT

private:
    static QByteArray navigator(const QByteArray &initial = "a")
    {
        QByteArray items;
        for (const char *item :
             {"a,preload: false; cache: true", "b,preload: false; cache: true", "fresh,preload: false; level: 2",
              "other,preload: false; level: 2", "third,preload: false; level: 3", "top,level: 10",
              "higher,preload: false; level: 11", "never,cache: false"}) {
            const auto parts = QByteArray(item).split(',');
            items += "StackItem { link: '" + parts.at(0) + "'; " + parts.at(1)
                + "; Item { property string told; Component.onCompleted: made.push('" + parts.at(0) + "') } }\n";
        }
        return "property alias navigator: nav; property alias stack: stack; property var made: []\n"
               "QC2.StackView { id: stack; anchors.fill: parent; pushEnter: null; pushExit: null; popEnter: null;"
               " popExit: null; replaceEnter: null; replaceExit: null }\n"
               "StackNavigator { id: nav; stackView: stack; initial: '"
            + initial + "'\n" + items + "}";
    }

    static QObject *navigatorOf(const Stage &stage) { return stage.window()->property("navigator").value<QObject *>(); }

    static QObject *show(const Stage &stage, const QString &link, const QVariantMap &values = {})
    {
        QVariant page;
        QMetaObject::invokeMethod(navigatorOf(stage), "show", Q_RETURN_ARG(QVariant, page), Q_ARG(QVariant, link),
                                  Q_ARG(QVariant, values));
        return page.value<QObject *>();
    }

    static int depth(const Stage &stage)
    {
        return stage.window()->property("stack").value<QObject *>()->property("depth").toInt();
    }

    static QString link(const Stage &stage) { return navigatorOf(stage)->property("currentLink").toString(); }
    static QStringList made(const Stage &stage) { return stage.window()->property("made").toStringList(); }

private slots:
    void theInitialPageIsShownAndPreloadedOnesAreMade()
    {
        Stage stage;
        stage.show(navigator());

        QCOMPARE(link(stage), QString("a"));
        QCOMPARE(depth(stage), 1);
        auto pages = made(stage);
        pages.sort();
        QCOMPARE(pages, QStringList({"a", "top"})); // what is not kept is not made before its time
        QCOMPARE(navigatorOf(stage)->property("visible").toBool(), false);
    }

    void nothingIsShownWithoutAnInitialLink()
    {
        Stage stage;
        stage.show(navigator(""));

        QCOMPARE(link(stage), QString());
        QCOMPARE(depth(stage), 0);
        QCOMPARE(made(stage), QStringList({"top"}));
    }

    void anUnknownLinkWarnsAndLeavesTheStack()
    {
        Stage stage;
        stage.show(navigator());
        expectMessage(QtWarningMsg, "^Could not find NAV PAGE 'nowhere'");

        QCOMPARE(show(stage, "nowhere"), nullptr);

        QCOMPARE(link(stage), QString("a"));
        QCOMPARE(navigatorOf(stage)->property("lastLink").toString(), QString("a"));
        QCOMPARE(depth(stage), 1);
    }

    void pagesOfOneLevelReplaceEachOther()
    {
        Stage stage;
        stage.show(navigator());
        auto *a = show(stage, "a");

        auto *b = show(stage, "b", {{"told", "x"}});

        QVERIFY(b && a != b);
        QCOMPARE(b->property("told").toString(), QString("x"));
        QCOMPARE(link(stage), QString("b"));
        QCOMPARE(depth(stage), 1);
        QCOMPARE(navigatorOf(stage)->property("lastLink").toString(), QString("b"));
        QCOMPARE(show(stage, "a"), a); // the same as before
        QCOMPARE(depth(stage), 1);
        QCOMPARE(made(stage).count("a"), 1);
    }

    void aDeeperLevelIsPushed()
    {
        Stage stage;
        stage.show(navigator());

        auto *fresh = show(stage, "fresh", {{"told", "1"}});

        QCOMPARE(depth(stage), 2);
        QCOMPARE(fresh->objectName(), QString("fresh"));
        QCOMPARE(fresh->property("told").toString(), QString("1"));
    }

    void aPageInTheStackGetsThePropertiesAndLosesWhatIsAboveIt()
    {
        Stage stage;
        stage.show(navigator());
        auto *fresh = show(stage, "fresh", {{"told", "1"}});
        show(stage, "top");
        QCOMPARE(depth(stage), 3);

        QCOMPARE(show(stage, "fresh", {{"told", "2"}}), fresh);

        QCOMPARE(fresh->property("told").toString(), QString("2"));
        QCOMPARE(depth(stage), 2);
        QCOMPARE(link(stage), QString("fresh"));
        QCOMPARE(made(stage).count("fresh"), 1);
    }

    void aPageThatIsNotKeptIsMadeAnew()
    {
        Stage stage;
        stage.show(navigator());
        show(stage, "fresh", {{"told", "1"}});
        show(stage, "a");
        QCOMPARE(depth(stage), 1);

        auto *again = show(stage, "fresh");

        QCOMPARE(again->property("told").toString(), QString());
        QCOMPARE(made(stage).count("fresh"), 2);
    }

    void aLowerLevelPopsDownToItAndReplaces()
    {
        Stage stage;
        stage.show(navigator());
        show(stage, "fresh");
        show(stage, "third");
        show(stage, "top");
        QCOMPARE(depth(stage), 4);

        show(stage, "other"); // of the level of "fresh"

        QCOMPARE(depth(stage), 2);
        QCOMPARE(link(stage), QString("other"));
        show(stage, "a"); // still below
        QCOMPARE(depth(stage), 1);
        QCOMPARE(made(stage).count("a"), 1);
    }

    void aLevelThatIsNotInTheStackEndsAtTheBottom()
    {
        Stage stage;
        stage.show(navigator("top"));
        QCOMPARE(depth(stage), 1);

        show(stage, "top");
        QCOMPARE(depth(stage), 1);
        show(stage, "a");

        QCOMPARE(depth(stage), 1);
        QCOMPARE(link(stage), QString("a"));
        show(stage, "top", {{"told", "again"}});
        QCOMPARE(depth(stage), 2);
        QCOMPARE(made(stage).count("top"), 1);
    }

    void whatIsOfAnotherLevelGoesDownToTheBottom()
    {
        Stage stage;
        stage.show(navigator("top"));
        show(stage, "higher");
        show(stage, "third"); // its level is none of those in the stack: two pages, and below it one more
        QCOMPARE(depth(stage), 3);

        show(stage, "fresh");

        QCOMPARE(depth(stage), 1);
        QCOMPARE(link(stage), QString("fresh"));
    }

    void clearForgetsEverything()
    {
        Stage stage;
        stage.show(navigator());
        show(stage, "b");

        QMetaObject::invokeMethod(navigatorOf(stage), "clear");

        QCOMPARE(depth(stage), 0);
        QCOMPARE(link(stage), QString());
        show(stage, "b");
        QCOMPARE(made(stage).count("b"), 2);
        QCOMPARE(depth(stage), 1);
    }

    void anotherInitialLinkStartsAnew()
    {
        Stage stage;
        stage.show(navigator());
        show(stage, "fresh");

        navigatorOf(stage)->setProperty("initial", "b");

        QCOMPARE(depth(stage), 1);
        QCOMPARE(link(stage), QString("b"));
    }

    void aHundredTurnsLeaveNothingBehind()
    {
        Stage stage;
        stage.show(navigator());

        for (int i = 0; i < 100; ++i) {
            show(stage, i % 2 ? "a" : "b");
            show(stage, "fresh");
            show(stage, "top");
            show(stage, i % 3 ? "fresh" : "a");
        }
        show(stage, "a");
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);

        QCOMPARE(depth(stage), 1);
        QCOMPARE(made(stage).count("a"), 1);
        QCOMPARE(made(stage).count("b"), 1);
        QCOMPARE(made(stage).count("top"), 1);
        int pages = 0;
        for (auto *child : stage.window()->property("stack").value<QQuickItem *>()->childItems())
            pages += child->objectName() == "fresh";
        QCOMPARE(pages, 0);
    }
};

ONDIRA_TEST(StackNavigatorTest)
#include "StackNavigatorTest.moc"
