// SPDX-License-Identifier: GPL-3.0-or-later
#include "shell/AppSettingsProxy.h"
#include "support/TestBase.h"

#include <QFile>
#include <QFileInfo>
#include <QJSEngine>
#include <QQmlEngine>
#include <QStandardPaths>
#include <QUuid>
#include <memory>

class AppSettingsProxyTest : public TestBase
{
    Q_OBJECT

private:
    std::unique_ptr<AppSettingsProxy> open() const
    {
        return std::make_unique<AppSettingsProxy>(QStringLiteral("frontend.ini"), m_folder);
    }

private slots:
    void init()
    {
        m_folder = QUuid::createUuid().toString(QUuid::WithoutBraces);
        m_settings = open();
    }

    void cleanup() { m_settings.reset(); }

    void fileLiesBelowTheApplicationData()
    {
        m_settings->setValue(QStringLiteral("a"), 1);
        m_settings.reset();
        const QString path = QStandardPaths::writableLocation(QStandardPaths::AppDataLocation) + '/' + m_folder
            + QStringLiteral("/frontend.ini");
        QVERIFY(QFileInfo::exists(path));
    }

    void valuesComeBack_data()
    {
        QTest::addColumn<QVariant>("value");
        QTest::addColumn<QString>("text");

        QTest::newRow("text") << QVariant("Кнопка, \"1\"\nx") << QStringLiteral("Кнопка, \"1\"\nx");
        QTest::newRow("number") << QVariant(17) << QStringLiteral("17");
        QTest::newRow("bool") << QVariant(true) << QStringLiteral("true");
        QTest::newRow("double") << QVariant(0.25) << QStringLiteral("0.25");
        QTest::newRow("empty") << QVariant(QString()) << QString();
    }

    void valuesComeBack()
    {
        QFETCH(QVariant, value);
        QFETCH(QString, text);
        m_settings->setValue(QStringLiteral("group/key"), value);
        QCOMPARE(m_settings->getValue(QStringLiteral("group/key")), value);

        m_settings.reset();
        m_settings = open();
        QCOMPARE(m_settings->getValue(QStringLiteral("group/key")).toString(), text);
    }

    void absentValueIsTheFallback()
    {
        QVERIFY(!m_settings->getValue(QStringLiteral("none")).isValid());
        QCOMPARE(m_settings->getValue(QStringLiteral("none"), 5), QVariant(5));
        QCOMPARE(m_settings->getValue(QString(), 5), QVariant(5));
    }

    void emptyKeyIsRefused()
    {
        m_settings->setValue(QStringLiteral("kept"), 1);
        m_settings->setValue(QString(), 2);
        m_settings->appendToArray(QString(), {{"a", 1}});
        m_settings->removeArray(QString());
        QCOMPARE(m_settings->getValue(QStringLiteral("kept")).toInt(), 1);
        QVERIFY(m_settings->getVariantArray(QString()).isEmpty());
    }

    void arraysGrowAndShrink()
    {
        const auto key = QStringLiteral("rows");
        QVERIFY(m_settings->getVariantArray(key).isEmpty());
        for (int i = 0; i < 3; ++i)
            m_settings->appendToArray(key, {{"name", QString::number(i)}, {"value", i * 10}});
        m_settings.reset();
        m_settings = open();
        QCOMPARE(m_settings->getVariantArray(key).size(), 3);
        QCOMPARE(m_settings->getVariantArray(key).at(1).toMap().value("value").toInt(), 10);
        QCOMPARE(m_settings->getArray(key).at(2).toMap(), (QVariantMap{{"name", "2"}, {"value", "20"}}));

        m_settings->removeArrayEntry(key, 3);
        m_settings->removeArrayEntry(key, -1);
        QCOMPARE(m_settings->getVariantArray(key).size(), 3);
        m_settings->removeArrayEntry(key, 0);
        QCOMPARE(m_settings->getVariantArray(key).size(), 2);
        QCOMPARE(m_settings->getVariantArray(key).first().toMap().value("name").toString(), QStringLiteral("1"));
        m_settings->removeArray(key);
        QVERIFY(m_settings->getVariantArray(key).isEmpty());
    }

    void valuesAreFoundInArrays()
    {
        const auto key = QStringLiteral("rows");
        const auto column = QStringLiteral("name");
        m_settings->appendToArray(key, {{"name", "a"}});
        m_settings->appendToArray(key, {{"name", "5"}});
        m_settings->appendToArray(key, {{"other", "a"}});
        QVERIFY(m_settings->checkValueArray(key, column, QStringLiteral("a")));
        QCOMPARE(m_settings->getIndexOfValueInArray(key, column, 5), 1);
        QCOMPARE(m_settings->getIndexOfValueInArray(key, column, QStringLiteral("b")), -1);
        QVERIFY(!m_settings->checkValueArray(QStringLiteral("none"), column, QStringLiteral("a")));
        // A row without the column does not hold an empty text in it.
        QCOMPARE(m_settings->getIndexOfValueInArray(key, column, QString()), -1);
    }

    void arraysAsTexts()
    {
        const auto key = QStringLiteral("rows");
        QCOMPARE(m_settings->getArrayJson(key), QStringLiteral("[ {  ]"));
        QCOMPARE(m_settings->getArrayXml(key), QStringLiteral("<xml/>"));
        m_settings->appendToArray(key, {{"a", "one\ntwo"}, {"b", "\"x\\"}});
        m_settings->appendToArray(key, {{"a", "<&>"}});
        QCOMPARE(m_settings->getArrayJson(key),
                 QStringLiteral("[ { \"a\" : \"one<br>two\", \"b\" : \"\"x\\\", },{\"a\" : \"<&>\",  ]"));
        QCOMPARE(m_settings->getArrayXml(key),
                 QStringLiteral("<xml><item><a>one&lt;br&gt;two</a><b>&quot;x\\</b></item>"
                                "<item><a>&lt;&amp;&gt;</a></item></xml>"));
    }

    void sizeThatIsOnlyClaimedReadsAsWhatIsThere()
    {
        m_settings->setValue(QStringLiteral("rows/size"), 2000000000);
        m_settings->setValue(QStringLiteral("rows/1/a"), 1);
        QCOMPARE(m_settings->getVariantArray(QStringLiteral("rows")).size(), 1);
    }

    void datesAndTheTimeZone()
    {
        QCOMPARE(m_settings->stringToDate(QStringLiteral("2024-02-29T07:08:09")),
                 QDateTime(QDate(2024, 2, 29), QTime(7, 8, 9)));
        QVERIFY(!m_settings->stringToDate(QStringLiteral("2023-02-29T07:08:09")).isValid());
        QVERIFY(!m_settings->stringToDate(QStringLiteral("tomorrow")).isValid());
        QCOMPARE(m_settings->getTimeZone(), 0.0); // tests run in UTC
    }

    void damagedFileReadsAsEmptyAndCanBeWritten()
    {
        const auto path = m_settings->fileName();
        m_settings->setValue(QStringLiteral("a"), 1);
        m_settings.reset();
        QFile file(path);
        QVERIFY(file.open(QIODevice::WriteOnly));
        file.write(QByteArray("\0\xff[[[=\n%%%", 11));
        file.close();
        m_settings = open();
        QVERIFY(!m_settings->getValue(QStringLiteral("a")).isValid());
        m_settings->setValue(QStringLiteral("b"), 2);
        m_settings.reset();
        m_settings = open();
        QCOMPARE(m_settings->getValue(QStringLiteral("b")).toInt(), 2);
    }

    void scriptsHandOverTheirValues()
    {
        QJSEngine engine;
        engine.globalObject().setProperty(QStringLiteral("settings"), engine.newQObject(m_settings.get()));
        QQmlEngine::setObjectOwnership(m_settings.get(), QQmlEngine::CppOwnership);
        const auto result = engine.evaluate(QStringLiteral("settings.setValue('list', [1, 2]);"
                                                           "settings.appendToArray('rows', {a: 'x', b: 3});"
                                                           "settings.getValue('list').length"));
        QCOMPARE(result.toInt(), 2);
        QCOMPARE(m_settings->getVariantArray(QStringLiteral("rows")).first().toMap(),
                 (QVariantMap{{"a", "x"}, {"b", 3}}));
    }

private:
    QString m_folder;
    std::unique_ptr<AppSettingsProxy> m_settings;
};

ONDIRA_TEST(AppSettingsProxyTest)
#include "AppSettingsProxyTest.moc"
