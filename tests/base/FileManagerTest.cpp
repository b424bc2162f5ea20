// SPDX-License-Identifier: GPL-3.0-or-later
#include "shell/FileManager.h"
#include "support/TestBase.h"

#include <QCoreApplication>
#include <QDomDocument>
#include <QFile>
#include <QStandardPaths>
#include <QTemporaryDir>

class FileManagerTest : public TestBase
{
    Q_OBJECT

private slots:
    void namesItsDirectory();
    void unknownRootIsTheEmptyDirectory();
    void touchesTheDiskOnlyWhenAsked();
    void creatingTwiceIsNoFailure();
    void tellsWhenItCannotCreate();
    void knowsItsFiles();
    void findsFilesInAllDirectoriesBelow();
    void findsNothingInAMissingDirectory();
    void linksInACircleEnd();
    void readsXml_data();
    void readsXml();
    void missingFileIsNotRead();
    void endlesslyNestedXmlIsNotRead();

private:
    static void write(const QString &path, const QByteArray &content);
};

void FileManagerTest::write(const QString &path, const QByteArray &content)
{
    QFile file(path);
    QVERIFY(file.open(QIODevice::WriteOnly));
    QCOMPARE(file.write(content), qint64(content.size()));
}

void FileManagerTest::namesItsDirectory()
{
    const QString home = QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation);

    QCOMPARE(FileManager("db", FileManager::Root::PerUser).getDirectory().path(), home + "/.ondirasmart/db");
    QCOMPARE(FileManager("tools", FileManager::Root::Application).getDirectory().path(),
             QCoreApplication::applicationDirPath() + "/tools");
    QCOMPARE(FileManager::getParentDirectory().path(), home + "/.ondirasmart");
}

void FileManagerTest::unknownRootIsTheEmptyDirectory()
{
    QCOMPARE(FileManager("db", static_cast<FileManager::Root>(2)).getDirectory(), QDir());
}

void FileManagerTest::touchesTheDiskOnlyWhenAsked()
{
    const FileManager manager("touch/below", FileManager::Root::PerUser);
    QVERIFY(!manager.getDirectory().exists());

    QVERIFY(manager.createDirectory());

    QVERIFY(manager.getDirectory().exists());
}

void FileManagerTest::creatingTwiceIsNoFailure()
{
    const FileManager manager("twice", FileManager::Root::PerUser);

    QVERIFY(manager.createDirectory());
    QVERIFY(manager.createDirectory());
}

void FileManagerTest::tellsWhenItCannotCreate()
{
    QVERIFY(FileManager("", FileManager::Root::PerUser).createDirectory());
    write(FileManager::getParentDirectory().filePath("blocked"), "a file");

    QVERIFY(!FileManager("blocked/folder", FileManager::Root::PerUser).createDirectory());
}

void FileManagerTest::knowsItsFiles()
{
    const FileManager manager("files", FileManager::Root::PerUser);
    QVERIFY(!manager.exists("a.txt"));
    QVERIFY(manager.createDirectory());
    write(manager.getDirectory().filePath("a.txt"), "text");

    QVERIFY(manager.exists("a.txt"));
    QVERIFY(!manager.exists("b.txt"));
}

void FileManagerTest::findsFilesInAllDirectoriesBelow()
{
    QTemporaryDir folder;
    const QDir root(folder.path());
    QVERIFY(root.mkpath("one/two"));
    QVERIFY(root.mkpath("named.xml"));
    write(root.filePath("top.xml"), "");
    write(root.filePath("top.txt"), "");
    write(root.filePath("one/two/deep.xml"), "");
    write(root.filePath("one/note.md"), "");

    QStringList found = FileManager::findFiles(root, {"*.xml", "*.md"});

    found.sort();
    QCOMPARE(found,
             QStringList({root.filePath("one/note.md"), root.filePath("one/two/deep.xml"), root.filePath("top.xml")}));
}

void FileManagerTest::findsNothingInAMissingDirectory()
{
    QCOMPARE(FileManager::findFiles(QDir("/nowhere/at/all"), {"*"}), QStringList());
}

void FileManagerTest::linksInACircleEnd()
{
    QTemporaryDir folder;
    const QDir root(folder.path());
    QVERIFY(root.mkpath("one"));
    QVERIFY(root.mkpath("two"));
    write(root.filePath("one/a.xml"), "");
    QVERIFY(QFile::link(root.path(), root.filePath("one/back")));
    QVERIFY(QFile::link(root.filePath("one"), root.filePath("two/across")));

    QCOMPARE(FileManager::findFiles(root, {"*.xml"}), QStringList(root.filePath("one/a.xml")));
}

void FileManagerTest::readsXml_data()
{
    QTest::addColumn<QByteArray>("content");
    QTest::addColumn<bool>("expected");

    QTest::newRow("document") << QByteArray("<site name=\"Дом\"><zone/></site>") << true;
    QTest::newRow("unclosed") << QByteArray("<site><zone></site>") << false;
    QTest::newRow("empty") << QByteArray() << false;
    QTest::newRow("not XML") << QByteArray("{\"site\": 1}") << false;
    QTest::newRow("zeros") << QByteArray(1000, '\0') << false;
}

void FileManagerTest::readsXml()
{
    QFETCH(QByteArray, content);
    QFETCH(bool, expected);
    const FileManager manager("xml", FileManager::Root::PerUser);
    QVERIFY(manager.createDirectory());
    write(manager.getDirectory().filePath("site.xml"), content);
    QDomDocument document;

    QCOMPARE(manager.readFromFile(document, "site.xml"), expected);

    if (expected)
        QCOMPARE(document.documentElement().attribute("name"), QString("Дом"));
}

void FileManagerTest::missingFileIsNotRead()
{
    QDomDocument document;

    QVERIFY(!FileManager("xml", FileManager::Root::PerUser).readFromFile(document, "missing.xml"));
    QVERIFY(!FileManager("no folder", FileManager::Root::PerUser).readFromFile(document, "missing.xml"));
}

void FileManagerTest::endlesslyNestedXmlIsNotRead()
{
    const int depth = 200000;
    const FileManager manager("xml", FileManager::Root::PerUser);
    QVERIFY(manager.createDirectory());
    write(manager.getDirectory().filePath("deep.xml"),
          QByteArray("<a>").repeated(depth) + QByteArray("</a>").repeated(depth));
    QDomDocument document;

    QVERIFY(!manager.readFromFile(document, "deep.xml"));
    QVERIFY(document.isNull());
}

ONDIRA_TEST(FileManagerTest)
#include "FileManagerTest.moc"
