// SPDX-License-Identifier: GPL-3.0-or-later
#include "layers/MadeUpTree.h"
#include "layers/SourceRules.h"
#include "support/TestBase.h"

namespace {

// One layer of the made-up tree: a header of it, and the layers whose headers a source beside it may include,
// in the order of this list ("+" may, "-" may not).
struct Layer
{
    const char *name;
    const char *header;
    const char *mayUse;
};

const Layer layers[] = {
    // clang-format off
    //                                             base
    //                                             |xlsx
    //                                             ||model
    //                                             |||document
    //                                             ||||json
    //                                             |||||zmq
    //                                             ||||||link
    //                                             |||||||qqsfpm
    //                                             ||||||||data
    //                                             |||||||||actions
    //                                             ||||||||||schedules
    //                                             |||||||||||statistics
    //                                             ||||||||||||terminal
    //                                             |||||||||||||xmlapi
    //                                             ||||||||||||||shell
    //                                             |||||||||||||||demo
    {"base",       "shell/FileManager.h",         "+---------------"},
    {"xlsx",       "xlsx/Document.h",             "++--------------"},
    {"model",      "model/Curtain.h",             "+-+-------------"},
    {"document",   "link/document/Entity.h",      "+-++------------"},
    {"json",       "model/json/Curtain.h",        "+-+++-----------"},
    {"zmq",        "link/zmq/Socket.h",           "-----+----------"},
    {"link",       "link/Communicator.h",         "+-+++++---------"},
    {"qqsfpm",     "data/qqsfpm/Proxy.h",         "-------+--------"},
    {"data",       "data/CurtainsListModel.h",    "+++++++++-------"},
    {"actions",    "actions/Builder.h",           "++++++++++------"},
    {"schedules",  "schedules/Days.h",            "+++++++++++-----"},
    {"statistics", "statistics/Chart.h",          "++++++++++++----"},
    {"terminal",   "terminal/Clock.h",            "+-+-+-------+---"},
    {"xmlapi",     "xmlapi/Document.h",           "+-+-+--------+--"},
    {"shell",      "shell/Startup.h",             "+++++++++++++++-"},
    {"demo",       "demo/DemoSite.h",             "+-++++---------+"},
    // clang-format on
};

const char shellLists[] = R"(
ondira_library(base
    SOURCES
        FileManager.cpp
        ColorTheme.cpp
    LINKS Qt5::Sql)

ondira_library(shell
    SOURCES
        FrontendManager.cpp
        Startup.cpp
    LINKS ondira_actions)
)";

QString pathOf(const char *header)
{
    return QByteArray(header).startsWith("demo/") ? QString(header) : QStringLiteral("src/") + header;
}

QByteArray includeOf(const char *header)
{
    return QByteArray("// Includes one\n#include \"") + header + "\"\n";
}

void writeTree(const MadeUpTree &tree)
{
    tree.write("src/shell/CMakeLists.txt", shellLists);
    for (const auto &layer : layers)
        tree.write(pathOf(layer.header), "#pragma once\n#include <QString>\n");
    for (const auto *header : {"src/shell/FrontendManager.h", "src/shell/Version.h", "src/data/BackendDataCache.h"})
        tree.write(header, "#pragma once\n");
}

} // namespace

class IncludeRuleTest : public TestBase
{
    Q_OBJECT

private slots:
    void cleanTreeHasNoViolation();
    void layersRestOnThoseBefore_data();
    void layersRestOnThoseBefore();
    void singleIncludes_data();
    void singleIncludes();
    void everyIncludeOfAFileIsChecked();
    void thisTreeKeepsTheRule();
};

void IncludeRuleTest::cleanTreeHasNoViolation()
{
    MadeUpTree tree;
    writeTree(tree);
    const SourceRules rules(tree.root());

    QCOMPARE(rules.includeViolations(), QStringList());
    QCOMPARE(rules.checkedFiles(), int(std::size(layers)) + 3);
    QCOMPARE(rules.checkedIncludes(), 0);
}

void IncludeRuleTest::layersRestOnThoseBefore_data()
{
    QTest::addColumn<QString>("file");
    QTest::addColumn<QByteArray>("content");
    QTest::addColumn<QStringList>("expected");

    for (const auto &from : layers) {
        // The source of that header, so that a source of base has a name of base; it includes one header of each.
        const auto file = pathOf(from.header).chopped(1) + "cpp";
        QByteArray content;
        QStringList violations;
        for (std::size_t i = 0; i < std::size(layers); ++i) {
            const auto &to = layers[i];
            content += QByteArray("#include \"") + to.header + "\"\n";
            if (from.mayUse[i] == '-')
                violations << QStringLiteral("%1:%2 includes \"%3\": %4 may not use %5")
                                  .arg(file, QString::number(i + 1), QString(to.header), QString(from.name),
                                       QString(to.name));
        }
        QTest::newRow(from.name) << file << content << violations;
    }
}

void IncludeRuleTest::layersRestOnThoseBefore()
{
    QFETCH(QString, file);
    QFETCH(QByteArray, content);
    QFETCH(QStringList, expected);
    MadeUpTree tree;
    writeTree(tree);
    tree.write(file, content);
    const SourceRules rules(tree.root());

    QCOMPARE(rules.includeViolations(), expected);
    QCOMPARE(rules.checkedIncludes(), int(std::size(layers)));
}

void IncludeRuleTest::singleIncludes_data()
{
    QTest::addColumn<QString>("file");
    QTest::addColumn<QByteArray>("content");
    QTest::addColumn<QString>("expected"); // without the file's name

    using Bytes = QByteArray;
    const QString none;
    QTest::newRow("link owns the cache") << "src/link/A.cpp" << includeOf("data/BackendDataCache.h") << none;
    QTest::newRow("model may not use the cache") << "src/model/A.cpp" << includeOf("data/BackendDataCache.h")
                                                 << ":2 includes \"data/BackendDataCache.h\": model may not use link";
    QTest::newRow("data may use the cache") << "src/data/A.cpp" << includeOf("data/BackendDataCache.h") << none;
    QTest::newRow("the cache belongs to link")
        << "src/data/BackendDataCache.cpp" << includeOf("link/Communicator.h") << none;
    QTest::newRow("the cache may not use the models")
        << "src/data/BackendDataCache.cpp" << includeOf("data/CurtainsListModel.h")
        << ":2 includes \"data/CurtainsListModel.h\": link may not use data";
    QTest::newRow("the version belongs to base") << "src/model/A.cpp" << includeOf("shell/Version.h") << none;
    QTest::newRow("main may know the manager") << "src/main.cpp" << includeOf("shell/FrontendManager.h") << none;
    QTest::newRow("the shell may know the manager")
        << "src/shell/Startup.cpp" << includeOf("shell/FrontendManager.h") << none;
    QTest::newRow("models may not know the manager")
        << "src/data/A.cpp" << includeOf("shell/FrontendManager.h")
        << ":2 includes \"shell/FrontendManager.h\": data may not use shell";
    QTest::newRow("headers are checked as well") << "src/model/A.h" << includeOf("link/Communicator.h")
                                                 << ":2 includes \"link/Communicator.h\": model may not use link";
    QTest::newRow("folders within a layer are checked as well")
        << "src/data/qqsfpm/sorters/A.h" << includeOf("model/Curtain.h")
        << ":2 includes \"model/Curtain.h\": qqsfpm may not use model";
    QTest::newRow("unknown folder") << "src/curtains/A.cpp" << Bytes() << " belongs to no layer";
    QTest::newRow("file beside main") << "src/other.cpp" << Bytes() << " belongs to no layer";
    QTest::newRow("path from the own folder")
        << "src/model/A.cpp" << includeOf("Curtain.h")
        << ":2 includes \"Curtain.h\": no file of ours, by a path that starts at src/";
    QTest::newRow("path upwards")
        << "src/model/A.cpp" << includeOf("model/../link/Communicator.h")
        << ":2 includes \"model/../link/Communicator.h\": no file of ours, by a path that starts at src/";
    QTest::newRow("file that is not there")
        << "src/model/A.cpp" << includeOf("model/Blind.h")
        << ":2 includes \"model/Blind.h\": no file of ours, by a path that starts at src/";
    QTest::newRow("angle brackets hide nothing") << "src/model/A.cpp" << Bytes("#include <link/Communicator.h>\n")
                                                 << ":1 includes \"link/Communicator.h\": model may not use link";
    QTest::newRow("spaces hide nothing") << "src/model/A.cpp" << Bytes("\t#  include\t\"link/Communicator.h\" // why\n")
                                         << ":1 includes \"link/Communicator.h\": model may not use link";
    QTest::newRow("line ends of Windows hide nothing")
        << "src/model/A.cpp" << Bytes("\r\n#include \"link/Communicator.h\"\r\n")
        << ":2 includes \"link/Communicator.h\": model may not use link";
    QTest::newRow("commented out") << "src/model/A.cpp" << Bytes("// #include \"link/Communicator.h\"\n") << none;
    QTest::newRow("of the system") << "src/model/A.cpp" << Bytes("#include <QUuid>\n#include <zmq.h>\n") << none;
    QTest::newRow("made by moc") << "src/model/A.cpp" << Bytes("#include \"A.moc\"\n") << none;
}

void IncludeRuleTest::singleIncludes()
{
    QFETCH(QString, file);
    QFETCH(QByteArray, content);
    QFETCH(QString, expected);
    MadeUpTree tree;
    writeTree(tree);
    tree.write(file, content);

    const auto violations = SourceRules(tree.root()).includeViolations();

    QCOMPARE(violations.join('\n'), expected.isEmpty() ? expected : file + expected);
}

void IncludeRuleTest::everyIncludeOfAFileIsChecked()
{
    MadeUpTree tree;
    writeTree(tree);
    tree.write("src/model/A.cpp",
               "#include \"data/CurtainsListModel.h\"\n#include \"model/Curtain.h\"\n#include \"shell/Startup.h\"\n");
    const SourceRules rules(tree.root());

    const auto violations = rules.includeViolations();

    QCOMPARE(violations.size(), 2);
    QVERIFY(violations.at(0).startsWith("src/model/A.cpp:1 "));
    QVERIFY(violations.at(1).startsWith("src/model/A.cpp:3 "));
    QCOMPARE(rules.checkedIncludes(), 3);
}

void IncludeRuleTest::thisTreeKeepsTheRule()
{
    const SourceRules rules(QStringLiteral(ONDIRA_SOURCE_ROOT));

    const auto violations = rules.includeViolations();

    QVERIFY2(violations.isEmpty(), qPrintable(violations.join('\n')));
    // A rule that finds no files would hold as well.
    QVERIFY(rules.checkedFiles() > 100);
    QVERIFY(rules.checkedIncludes() > 200);
}

ONDIRA_TEST(IncludeRuleTest)
#include "IncludeRuleTest.moc"
