// SPDX-License-Identifier: GPL-3.0-or-later
#include "data/DeviceTypesListModel.h"
#include "Records.h"
#include "SignalLog.h"
#include "support/FakeCommunicator.h"
#include "support/TestBase.h"

#include <QAbstractItemModelTester>

using namespace Records;
using Role = DeviceTypesListModel::Role;

class DeviceTypesListModelTest : public TestBase
{
    Q_OBJECT

private slots:
    void numbersItsRolesFromZero()
    {
        FakeCommunicator link;
        const DeviceTypesListModel model(link);
        const QHash<int, QByteArray> expected{{0, "url"},           {1, "version"},    {2, "name"},
                                              {3, "description"},   {4, "tags"},       {5, "commonType"},
                                              {6, "parameters"},    {7, "statistics"}, {8, "uniqueAddress"},
                                              {9, "customAddress"}, {10, "sortOrder"}};

        QCOMPARE(model.roleNames(), expected);
    }

    void sortsBySortOrderAndKeepsTheOrderOfEquals()
    {
        FakeCommunicator link;
        const DeviceTypesListModel model(link);

        link.publishDeviceTypes({type("c", "C", 5), type("a", "A", 1), type("d", "D", 5), type("b", "B", -2)});

        QCOMPARE(column(model, Role::Name), QStringList({"B", "A", "C", "D"}));
    }

    void eachListResetsIt()
    {
        FakeCommunicator link;
        DeviceTypesListModel model(link);
        SignalLog log(model);

        link.publishDeviceTypes({type("a", "A")});
        link.publishDeviceTypes({type("a", "A")});
        link.publishDeviceTypes({});

        QCOMPARE(log.take(), QStringList({"resetting", "reset", "resetting", "reset", "resetting", "reset"}));
        QCOMPARE(model.rowCount(), 0);
    }

    void standsUpToTheModelTesterButForItsRoleNumbers()
    {
        FakeCommunicator link;
        DeviceTypesListModel model(link);
        QAbstractItemModelTester tester(&model, QAbstractItemModelTester::FailureReportingMode::Warning);
        // Its role numbers are those of icon, font and colours for a widget; the tester stops at the first that
        // differs.
        expectMessage(QtWarningMsg, "FAIL! variant.canConvert<QString>");

        link.publishDeviceTypes({type("a", "A")});

        QCOMPARE(model.rowCount(), 1);
    }

    void presentsAType()
    {
        FakeCommunicator link;
        const DeviceTypesListModel model(link);
        auto info = type("lamp.qml", "Lamp", 4);
        info.version = 3;
        info.description = "A lamp";
        info.tags = QStringList{"x", "y"};
        info.uniqueAddress = true;
        info.customAddress = "serial";
        info.statistics.interface = "Lamp.qml";
        Model::DeviceTypeInfo::Parameter parameter;
        parameter.identificator = "level";
        parameter.description = "Level";
        parameter.access = Model::DeviceTypeInfo::Parameter::Access::In;
        parameter.limits = Model::ActionValueLimits::integer(0, 100);
        parameter.defaultValue = Model::ActionDatatype(7LL);
        info.parameters = {parameter};

        link.publishDeviceTypes({info});

        const auto record = model.getByUrl(QUrl("lamp.qml")).toMap();
        QCOMPARE(record.keys(),
                 QStringList({"commonType", "customAddress", "description", "name", "parameters", "sortOrder",
                              "statistics", "tags", "uniqueAddress", "url", "version"}));
        QCOMPARE(record["url"].toUrl(), QUrl("lamp.qml"));
        QCOMPARE(record["version"].toInt(), 3);
        QCOMPARE(record["name"].toString(), QString("Lamp"));
        QCOMPARE(record["description"].toString(), QString("A lamp"));
        QCOMPARE(record["tags"].toStringList(), QStringList({"x", "y"}));
        QCOMPARE(record["commonType"].toString(), QString("lamp"));
        QCOMPARE(record["statistics"].toMap(), info.statistics.toVariant());
        QCOMPARE(record["uniqueAddress"], QVariant(true));
        QCOMPARE(record["customAddress"].toString(), QString("serial"));
        QCOMPARE(record["sortOrder"].toInt(), 4);
        const auto map = record["parameters"].toList().at(0).toMap();
        QCOMPARE(map.keys(), QStringList({"access", "defaultValue", "definition", "description", "identificator"}));
        QCOMPARE(map["identificator"].toString(), QString("level"));
        QCOMPARE(map["description"].toString(), QString("Level"));
        QCOMPARE(map["access"].toString(), QString("in"));
        QCOMPARE(map["definition"], parameter.limits.toVariant());
        QCOMPARE(map["definition"].toMap().value("type").toString(), QString("integer"));
        QCOMPARE(map["defaultValue"].toInt(), 7);
    }

    void anUnknownUrlGivesAnEmptyMap()
    {
        FakeCommunicator link;
        const DeviceTypesListModel model(link);
        link.publishDeviceTypes({type("a", "A")});

        QCOMPARE(model.getByUrl(QUrl("b")), QVariant(QVariantMap()));
        QCOMPARE(model.getByUrl(QUrl()).userType(), int(QMetaType::QVariantMap));
    }

    void unknownPlacesAndRolesReadAsInvalid()
    {
        FakeCommunicator link;
        const DeviceTypesListModel model(link);
        link.publishDeviceTypes({type("a", "A")});

        QVERIFY(!model.data(QModelIndex(), Role::Name).isValid());
        QVERIFY(!value(model, 0, 11).isValid());
        QVERIFY(!value(model, 0, 257).isValid());
    }

    void aModelMadeLateReadsWhatWasPublished()
    {
        FakeCommunicator link;
        link.publishDeviceTypes({type("a", "A")});

        const DeviceTypesListModel late(link);

        QCOMPARE(late.rowCount(), 1);
    }
};

ONDIRA_TEST(DeviceTypesListModelTest)
#include "DeviceTypesListModelTest.moc"
