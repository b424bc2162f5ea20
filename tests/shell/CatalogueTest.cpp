// SPDX-License-Identifier: GPL-3.0-or-later
// The English catalogue against the texts of the sources, which are gathered anew for the test.
#include "support/TestBase.h"

#include <QDomDocument>
#include <QFile>
#include <QMap>
#include <QProcess>
#include <QRegularExpression>
#include <QTemporaryDir>

namespace {

struct Message
{
    QString source;
    QStringList translations; // several when it counts
    bool isFinished = false;
};

using Catalogue = QMap<QString, Message>; // by context, source and comment

QString describe(const QString &key)
{
    return QString(key).replace('\n', " / ");
}

} // namespace

class CatalogueTest : public TestBase
{
    Q_OBJECT

private slots:
    void initTestCase();
    void gathersTheTextsOfTheSources();
    void everyTextIsTranslated();
    void placeholdersAgree();
    void translationsAreEnglish();
    void nothingStaysThatIsGone();

private:
    static Catalogue read(const QString &path);

    Catalogue m_sources;
    Catalogue m_english;
};

Catalogue CatalogueTest::read(const QString &path)
{
    QFile file(path);
    QDomDocument document;
    if (!file.open(QIODevice::ReadOnly) || !document.setContent(&file))
        return {};
    Catalogue catalogue;
    const auto contexts = document.documentElement().elementsByTagName("context");
    for (int i = 0; i < contexts.size(); ++i) {
        const auto context = contexts.at(i).toElement();
        const QString name = context.firstChildElement("name").text();
        for (auto element = context.firstChildElement("message"); !element.isNull();
             element = element.nextSiblingElement("message")) {
            const auto translation = element.firstChildElement("translation");
            Message message;
            message.source = element.firstChildElement("source").text();
            message.isFinished = !translation.hasAttribute("type");
            const auto forms = translation.elementsByTagName("numerusform");
            for (int form = 0; form < forms.size(); ++form)
                message.translations << forms.at(form).toElement().text();
            if (forms.isEmpty())
                message.translations << translation.text();
            const QString comment = element.firstChildElement("comment").text();
            const QString count = element.hasAttribute("numerus") ? "counting" : "";
            catalogue.insert(QStringList{name, message.source, comment, count}.join('\n'), message);
        }
    }
    return catalogue;
}

void CatalogueTest::initTestCase()
{
    QTemporaryDir folder;
    const QString path = folder.filePath("fresh.ts");
    QProcess lupdate;
    lupdate.setWorkingDirectory(ONDIRA_SOURCE_DIR);
    lupdate.start(ONDIRA_LUPDATE,
                  {"-silent", "-no-obsolete", "-locations", "none", "-extensions", "cpp,h,js,qml", "-source-language",
                   "ru_RU", "-target-language", "en_US", "src", "qml", "-ts", path});
    QVERIFY2(lupdate.waitForFinished(120000), qPrintable(lupdate.errorString()));
    QVERIFY2(lupdate.exitCode() == 0, lupdate.readAllStandardError().constData());
    m_sources = read(path);
    m_english = read(QString(ONDIRA_SOURCE_DIR) + "/resources/translations/frontend_en.ts");
}

void CatalogueTest::gathersTheTextsOfTheSources()
{
    QVERIFY(m_sources.contains("ConnectionsListModel\nНе удалось удалить подключение\n\n"));
}

void CatalogueTest::everyTextIsTranslated()
{
    QStringList missing;
    for (auto text = m_sources.begin(); text != m_sources.end(); ++text) {
        const auto english = m_english.find(text.key());
        if (english == m_english.end() || !english->isFinished || english->translations.contains(QString()))
            missing << describe(text.key());
    }
    QVERIFY2(missing.isEmpty(), qPrintable("Not translated (run scripts/translate):\n" + missing.join('\n')));
}

void CatalogueTest::placeholdersAgree()
{
    const QRegularExpression placeholder("%L?[0-9]{1,2}|%n");
    const auto placeholdersOf = [&placeholder](const QString &text) {
        QSet<QString> found;
        auto matches = placeholder.globalMatch(text);
        while (matches.hasNext())
            found << matches.next().captured();
        return found;
    };
    for (auto english = m_english.begin(); english != m_english.end(); ++english) {
        for (const QString &translation : english->translations)
            QVERIFY2(placeholdersOf(translation) == placeholdersOf(english->source),
                     qPrintable(describe(english.key()) + " -> " + translation));
    }
}

void CatalogueTest::translationsAreEnglish()
{
    const QSet<QString> namesOfLanguages{"Русский"}; // written in their own script
    const QRegularExpression cyrillic("\\p{Cyrillic}");
    for (auto english = m_english.begin(); english != m_english.end(); ++english) {
        for (const QString &translation : english->translations)
            QVERIFY2(namesOfLanguages.contains(translation) || !translation.contains(cyrillic),
                     qPrintable(describe(english.key()) + " -> " + translation));
    }
}

void CatalogueTest::nothingStaysThatIsGone()
{
    QStringList gone;
    for (auto english = m_english.begin(); english != m_english.end(); ++english) {
        if (!m_sources.contains(english.key()))
            gone << describe(english.key());
    }
    QVERIFY2(gone.isEmpty(), qPrintable("In no source any more (run scripts/translate):\n" + gone.join('\n')));
}

ONDIRA_TEST(CatalogueTest)
#include "CatalogueTest.moc"
