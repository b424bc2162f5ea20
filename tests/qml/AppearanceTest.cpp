// SPDX-License-Identifier: GPL-3.0-or-later
#include "qml/Stage.h"
#include "support/TestBase.h"

#include <QAccessible>
#include <QQmlContext>
#include <QQmlProperty>
#include <QTranslator>
#include <algorithm>

using Link = AbstractBackendCommunicator;

// Every screen and dialog at the sizes of a desktop, a tablet and two phones, in both languages: no text is cut, every
// interactive item is in the window, large enough for a finger, reached by Tab, and known to a screen reader.
class AppearanceTest : public TestBase
{
    Q_OBJECT

private:
    static const QList<QSize> &sizes()
    {
        static const QList<QSize> list{{1280, 800}, {960, 600}, {420, 800}, {360, 640}};
        return list;
    }

    static QStringList screens()
    {
        return {"no connections",   "new connection", "refused",
                "saved connection", "connections",    "connection menu",
                "connecting",       "disconnected",   "plan",
                "selection",        "short error",    "long error",
                "empty part",       "no parts",       "no saved connections"};
    }

    void enter(Stage &stage, const QString &screen);

    static bool isInteractive(QQuickItem *item)
    {
        return item->isEnabled() && item->opacity() > 0
            && (item->inherits("QQuickAbstractButton") || item->inherits("QQuickTextField") || isTile(item));
    }
    static bool isTile(QQuickItem *item) { return QByteArray(item->metaObject()->className()).startsWith("ZoneTile"); }
    // Buttons hand their own text over as their name, though not before a screen reader listens.
    static QString accessibleName(QQuickItem *item)
    {
        const auto given = QQmlProperty::read(item, "Accessible.name", qmlContext(item)).toString();
        return given.isEmpty() && item->inherits("QQuickAbstractButton") ? item->property("text").toString() : given;
    }
    static QString described(QQuickItem *item)
    {
        return QStringLiteral("%1 \"%2\" \"%3\"")
            .arg(item->metaObject()->className(), item->objectName(), item->property("text").toString());
    }
    // Whether the user can bring it into sight by scrolling.
    static bool isInScrollingContent(QQuickItem *item)
    {
        for (auto *parent = item->parentItem(); parent; parent = parent->parentItem()) {
            if (parent->inherits("QQuickFlickable")
                && (parent->property("contentWidth").toReal() > parent->width() + 0.5
                    || parent->property("contentHeight").toReal() > parent->height() + 0.5))
                return true;
        }
        return false;
    }
    static bool isInPopup(QQuickItem *item)
    {
        for (; item; item = item->parentItem()) {
            if (item->inherits("QQuickPopupItem"))
                return true;
        }
        return false;
    }
    static std::vector<QQuickItem *> interactive(const Stage &stage) { return stage.items(isInteractive); }

    // The column at the left is a place of its own: F6 goes there and back.
    static bool isInSidebar(QQuickItem *item)
    {
        while (item && item->objectName() != "sidebarBody")
            item = item->parentItem();
        return item != nullptr;
    }

    static bool isModal(const Stage &stage)
    {
        const auto objects = stage.window()->findChildren<QObject *>();
        return std::any_of(objects.begin(), objects.end(), [](QObject *object) {
            return object->inherits("QQuickPopup") && object->property("visible").toBool()
                && object->property("modal").toBool();
        });
    }

    // A modal popup takes everything below it out of reach.
    static std::vector<QQuickItem *> reachable(const Stage &stage)
    {
        auto all = interactive(stage);
        const bool modal = isModal(stage);
        all.erase(
            std::remove_if(all.begin(), all.end(),
                           [modal](QQuickItem *item) { return isInSidebar(item) || (modal && !isInPopup(item)); }),
            all.end());
        return all;
    }

    static QStringList cutTexts(const Stage &stage);
    static QStringList itemsOutsideTheWindow(const Stage &stage);
    static QStringList itemsTooSmallForAFinger(const Stage &stage);
    static QStringList itemsUnknownToScreenReaders(const Stage &stage);

    static void languagesAndScreens()
    {
        QTest::addColumn<QString>("language");
        QTest::addColumn<QString>("screen");

        for (const auto *language : {"ru", "en"}) {
            for (const auto &screen : screens())
                QTest::newRow(qPrintable(language + (' ' + screen))) << language << screen;
        }
    }

private slots:
    void screensFitEverySize_data() { languagesAndScreens(); }
    void screensFitEverySize();
    void allIsReachedByTab_data();
    void allIsReachedByTab();
    void aTextThatIsCutWouldBeFound();
};

void AppearanceTest::enter(Stage &stage, const QString &screen)
{
    const bool isSaved = screen != "no connections" && screen != "new connection";
    if (isSaved)
        stage.connections.add("Демо", "192.168.100.200", "admin", "admin");
    stage.showMain();
    QVERIFY(stage.window());
    if (screen == "new connection") {
        stage.click("placeholderButton");
    } else if (screen == "refused") {
        allowMessages("UNIQUE constraint failed");
        QMetaObject::invokeMethod(stage.object("connectionsDrawer"), "addRequested");
        const QStringList values{"Демо", "192.168.100.200", "admin", "admin"};
        QStringList fields{"nameField", "addressField", "loginField", "passwordField"};
        for (int i = 0; i < fields.size(); ++i) {
            QTRY_VERIFY(stage.has(fields.at(i)));
            stage.item(fields.at(i))->setProperty("text", values.at(i));
        }
        stage.key(Qt::Key_Return);
        QTRY_VERIFY(stage.has("refusalLabel"));
    } else if (screen == "saved connection" || screen == "connections" || screen == "connection menu") {
        stage.click("connectionButton");
        QTRY_VERIFY(stage.object("connectionsDrawer")->property("opened").toBool());
        stage.settle();
        if (screen != "connections")
            stage.click("connectionMenuButton0");
        if (screen == "saved connection") {
            QTRY_VERIFY(stage.has("editConnection0"));
            stage.settle();
            stage.click("editConnection0");
            QTRY_VERIFY(stage.has("positiveButton"));
        }
    } else if (screen == "connecting") {
        stage.object("loadingScreen")->setProperty("seconds", 301);
    } else if (screen == "disconnected") {
        stage.link.enter(Link::Disconnected);
    } else if (isSaved) {
        stage.link.logIn("admin", "admin");
        stage.publishSite(screen == "empty part" ? 0 : 30, "Торговый зал");
        if (screen == "no parts")
            stage.link.publishShopParts({});
        if (screen == "plan" || screen == "selection") {
            QTRY_VERIFY(stage.tile(11));
            QTRY_VERIFY(stage.item("shopScreen")->property("loaded").toBool());
            stage.settle();
        }
        if (screen == "selection") {
            stage.click(stage.tile(11));
            QTRY_VERIFY(stage.has("autoModeButton"));
        } else if (screen == "short error") {
            stage.link.reportErrors({{"401", "Неверное имя пользователя или пароль", ""}});
        } else if (screen == "long error") {
            stage.link.reportErrors({{"500", "Не удалось выполнить действие",
                                      QString("Устройство с адресом 12 не отвечает. ").repeated(20)}});
        } else if (screen == "no saved connections") {
            stage.connections.remove(0);
            QTRY_VERIFY(stage.has("noSavedConnections"));
        }
        if (screen.endsWith("error"))
            QTRY_VERIFY(stage.object("errorPopup")->property("opened").toBool());
    }
    stage.settle();
}

void AppearanceTest::screensFitEverySize()
{
    QFETCH(QString, screen);
    QFETCH(QString, language);
    QTranslator translator;
    if (language == "en") {
        QVERIFY(translator.load(":/translations/frontend_en.qm"));
        QCoreApplication::installTranslator(&translator);
    }
    Stage stage;
    enter(stage, screen);
    if (QTest::currentTestFailed())
        return;
    QStringList faults;
    for (const auto &size : sizes()) {
        stage.resize(size);
        for (const auto &check :
             {cutTexts, itemsOutsideTheWindow, itemsTooSmallForAFinger, itemsUnknownToScreenReaders}) {
            for (const auto &fault : check(stage))
                faults << QStringLiteral("%1x%2: %3").arg(size.width()).arg(size.height()).arg(fault);
        }
    }
    QVERIFY2(faults.isEmpty(), qPrintable(faults.join('\n')));
}

QStringList AppearanceTest::cutTexts(const Stage &stage)
{
    QStringList faults;
    for (auto *text : stage.items([](QQuickItem *item) { return item->inherits("QQuickText"); })) {
        const bool isTooLarge = text->property("contentWidth").toReal() > text->width() + 0.5
            || text->property("contentHeight").toReal() > text->height() + 0.5;
        if (text->property("truncated").toBool() || (isTooLarge && text->opacity() > 0))
            faults << described(text) + " is cut";
    }
    return faults;
}

QStringList AppearanceTest::itemsOutsideTheWindow(const Stage &stage)
{
    QStringList faults;
    const QRectF window(-0.5, -0.5, stage.window()->width() + 1, stage.window()->height() + 1);
    for (auto *item : interactive(stage)) {
        if (!isInScrollingContent(item) && !window.contains(item->mapRectToScene(QRectF(QPointF(), item->size()))))
            faults << described(item) + " leaves the window";
    }
    return faults;
}

QStringList AppearanceTest::itemsTooSmallForAFinger(const Stage &stage)
{
    QStringList faults;
    for (auto *item : interactive(stage)) {
        if (!isTile(item) && (item->width() < 48 || item->height() < 48))
            faults << QStringLiteral("%1 is %2 by %3").arg(described(item)).arg(item->width()).arg(item->height());
    }
    return faults;
}

QStringList AppearanceTest::itemsUnknownToScreenReaders(const Stage &stage)
{
    QStringList faults;
    const auto items = interactive(stage);
    if (items.empty())
        faults << "nothing to press";
    for (auto *item : items) {
        if (accessibleName(item).trimmed().isEmpty())
            faults << described(item) + " has no name";
    }
    return faults;
}

void AppearanceTest::allIsReachedByTab_data()
{
    QTest::addColumn<QString>("screen");

    for (const auto &screen : screens()) {
        // Reached by Return and by arrows: tested elsewhere.
        if (screen != "selection" && screen != "connection menu")
            QTest::newRow(qPrintable(screen)) << screen;
    }
}

void AppearanceTest::allIsReachedByTab()
{
    QFETCH(QString, screen);
    Stage stage;
    enter(stage, screen);

    QSet<QQuickItem *> reached;
    for (int i = 0; i < 120; ++i) {
        stage.key(Qt::Key_Tab);
        reached << stage.window()->activeFocusItem();
    }

    for (auto *item : reachable(stage))
        QVERIFY2(reached.contains(item), qPrintable(described(item)));
    for (auto *item : qAsConst(reached))
        QVERIFY2(item && item->isVisible() && item->isEnabled(), "the keyboard went out of sight");
}

void AppearanceTest::aTextThatIsCutWouldBeFound()
{
    Stage stage;
    stage.show("QC2.Label { width: 20; text: 'Слишком длинно' }\n"
               "QC2.Label { y: 50; width: 20; elide: Text.ElideRight; text: 'Слишком длинно' }");
    const auto texts = stage.items([](QQuickItem *item) { return item->inherits("QQuickText"); });

    QCOMPARE(texts.size(), std::size_t(2));
    QVERIFY(texts[0]->property("contentWidth").toReal() > 20.5);
    QVERIFY(texts[1]->property("truncated").toBool());
}

ONDIRA_TEST(AppearanceTest)
#include "AppearanceTest.moc"
