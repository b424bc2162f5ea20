// SPDX-License-Identifier: GPL-3.0-or-later
#include "layers/MadeUpTree.h"
#include "layers/SourceRules.h"
#include "support/TestBase.h"

namespace {

const QByteArray licence("SPDX-License-Identifier: GPL-3.0-or-later\n");

// In halves, since this file is read by the rule as well.
const QByteArray words[] = {QByteArray("TO") + "DO", QByteArray("FIX") + "ME", QByteArray("X") + "XX",
                            QByteArray("HA") + "CK"};

} // namespace

class TextRulesTest : public TestBase
{
    Q_OBJECT

private slots:
    void licenceLines_data();
    void licenceLines();
    void unfinishedWords_data();
    void unfinishedWords();
    void topLevelFilesAreRead();
    void thisTreeHasItsLicenceLines();
    void thisTreeIsFinished();
};

void TextRulesTest::licenceLines_data()
{
    QTest::addColumn<QString>("file");
    QTest::addColumn<QByteArray>("content");
    QTest::addColumn<bool>("expected");

    QTest::newRow("C++") << "src/model/A.cpp"
                         << "// " + licence << true;
    QTest::newRow("CMake") << "src/CMakeLists.txt"
                           << "# " + licence << true;
    QTest::newRow("after the line of a shell") << "tests/e2e/run"
                                               << "#!/bin/sh\n# " + licence << true;
    QTest::newRow("after the line of XML") << "qml/qml.qrc"
                                           << "<!DOCTYPE RCC>\n<!-- " + licence << true;
    QTest::newRow("none in C++") << "src/model/A.h" << QByteArray("#pragma once\n") << false;
    QTest::newRow("none in QML") << "qml/A.qml" << QByteArray("import QtQuick 2.15\n") << false;
    QTest::newRow("none in a module list") << "qml/qmldir" << QByteArray("module A\n") << false;
    QTest::newRow("none in the demo site") << "demo/A.cpp" << QByteArray("\n") << false;
    QTest::newRow("none in tests") << "tests/A.cpp" << QByteArray("\n") << false;
    QTest::newRow("none in benchmarks") << "bench/A.cpp" << QByteArray("\n") << false;
    QTest::newRow("empty file") << "src/model/A.cpp" << QByteArray() << false;
    QTest::newRow("far below the top") << "src/model/A.cpp"
                                       << "\n\n\n// " + licence << false;
    QTest::newRow("another licence") << "src/model/A.cpp" << QByteArray("// SPDX-License-Identifier: MIT\n") << false;
    QTest::newRow("JSON has no comments") << "demo/site/site.json" << QByteArray("{}") << true;
    QTest::newRow("pictures have no comments") << "qml/a.png" << QByteArray("\x89PNG") << true;
    QTest::newRow("binary files have no comments") << "tests/fuzz/frame" << QByteArray("\0\2a", 3) << true;
    QTest::newRow("other folders have files without") << "docs/architecture.md" << QByteArray("# A\n") << true;
}

void TextRulesTest::licenceLines()
{
    QFETCH(QString, file);
    QFETCH(QByteArray, content);
    QFETCH(bool, expected);
    MadeUpTree tree;
    tree.write(file, content);

    const auto violations = SourceRules(tree.root()).licenceViolations();

    QCOMPARE(violations, expected ? QStringList() : QStringList(file + " has no licence line"));
}

void TextRulesTest::unfinishedWords_data()
{
    QTest::addColumn<QString>("file");
    QTest::addColumn<QByteArray>("content");
    QTest::addColumn<QString>("expected"); // without the file's name

    const auto held = [](const QByteArray &word) { return QString(":1 holds the word " + word); };
    const QString none;
    QTest::newRow("first") << "src/model/A.cpp"
                           << "// " + words[0] + ": later\n"
                           << held(words[0]);
    QTest::newRow("second") << "qml/A.qml"
                            << "// " + words[1] + "\n"
                            << held(words[1]);
    QTest::newRow("third") << "demo/A.cpp"
                           << "// " + words[2] + "\n"
                           << held(words[2]);
    QTest::newRow("fourth") << "tests/A.cpp"
                            << "int a; // " + words[3] + "\n"
                            << held(words[3]);
    QTest::newRow("with a name") << "scripts/setup"
                                 << "# " + words[0] + "(me)\n"
                                 << held(words[0]);
    QTest::newRow("in the benchmarks") << "bench/A.cpp" << words[1] << held(words[1]);
    QTest::newRow("in the pages") << "docs/a.md" << words[0] << held(words[0]);
    QTest::newRow("in the build files") << "cmake/a.cmake"
                                        << "# " + words[0] << held(words[0]);
    QTest::newRow("on the second line") << "src/A.cpp"
                                        << "\n" + words[0] << QString(":2 holds the word " + words[0]);
    QTest::newRow("part of a name") << "scripts/setup"
                                    << "a." + words[2] + "X; " + words[0] + "S=1\n"
                                    << none;
    QTest::newRow("small letters") << "src/A.cpp" << words[0].toLower() + ' ' + words[3].toLower() << none;
    QTest::newRow("binary file") << "resources/a.bin" << QByteArray(1, '\0') + words[0] << none;
    QTest::newRow("fonts are foreign") << "resources/fonts/OFL.txt" << words[0] << none;
    QTest::newRow("built files are not read") << "build/a.txt" << words[0] << none;
}

void TextRulesTest::unfinishedWords()
{
    QFETCH(QString, file);
    QFETCH(QByteArray, content);
    QFETCH(QString, expected);
    MadeUpTree tree;
    tree.write(file, content);

    const auto violations = SourceRules(tree.root()).wordViolations();

    QCOMPARE(violations.join('\n'), expected.isEmpty() ? expected : file + expected);
}

void TextRulesTest::topLevelFilesAreRead()
{
    MadeUpTree tree;
    tree.write("README.md", "One\nTwo, " + words[0] + "\n");

    QCOMPARE(SourceRules(tree.root()).wordViolations(), QStringList("README.md:2 holds the word " + words[0]));
}

void TextRulesTest::thisTreeHasItsLicenceLines()
{
    const SourceRules rules(QStringLiteral(ONDIRA_SOURCE_ROOT));

    const auto violations = rules.licenceViolations();

    QVERIFY2(violations.isEmpty(), qPrintable(violations.join('\n')));
    QVERIFY(rules.checkedFiles() > 200);
}

void TextRulesTest::thisTreeIsFinished()
{
    const SourceRules rules(QStringLiteral(ONDIRA_SOURCE_ROOT));

    const auto violations = rules.wordViolations();

    QVERIFY2(violations.isEmpty(), qPrintable(violations.join('\n')));
    QVERIFY(rules.checkedFiles() > 200);
}

ONDIRA_TEST(TextRulesTest)
#include "TextRulesTest.moc"
