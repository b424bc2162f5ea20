// SPDX-License-Identifier: GPL-3.0-or-later
#include "data/SharedModels.h"
#include "support/FakeCommunicator.h"
#include "support/TestBase.h"

class SharedModelsTest : public TestBase
{
    Q_OBJECT

private slots:
    void holdsNothingUntilItIsFilled()
    {
        auto &shared = SharedModels::instance();

        QVERIFY(!shared.communicator && !shared.users && !shared.deviceTypes && !shared.devices && !shared.shopParts
                && !shared.zones && !shared.deviceFaults);
    }

    void isOneForTheProgram()
    {
        FakeCommunicator link;

        SharedModels::instance().communicator = &link;
        QCOMPARE(SharedModels::instance().communicator, &link);
        SharedModels::instance() = SharedModels();

        QVERIFY(!SharedModels::instance().communicator);
    }
};

ONDIRA_TEST(SharedModelsTest)
#include "SharedModelsTest.moc"
