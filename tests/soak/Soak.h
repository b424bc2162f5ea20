// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "data/DeviceFaultsListModel.h"
#include "data/DeviceTypesListModel.h"
#include "data/DevicesListModel.h"
#include "data/ShopPartsListModel.h"
#include "data/UsersListModel.h"
#include "data/ZonesListModel.h"
#include "link/JsonBackendCommunicator.h"
#include "soak/ServerThread.h"
#include "soak/TcpProxy.h"

#include <QString>
#include <memory>

// One client with its list models, and one server that is taken away from it in several ways. Each function tells what
// it saw on standard output and gives false when something was not as it must be.
class Soak
{
public:
    Soak(int devices, int tickMs);

    bool begin();
    bool restart(int times, int seconds); // as often as told, or until the time is over; 0: no limit of time
    bool killPublications(int times);
    bool watchGrowth(int seconds); // resident memory must not grow by 5 MB after the first minute

private:
    bool waitConnected(int limitMs, qint64 *tookMs = nullptr);
    bool waitListsEqual(int limitMs);
    QString difference(const Demo::SiteData &server) const; // empty: every list is the server's

    // The models, so that each list goes the whole way to rows.
    struct Client
    {
        JsonBackendCommunicator link;
        UsersListModel users{link};
        DeviceTypesListModel types{link};
        DevicesListModel devices{link};
        DeviceFaultsListModel faults{link, devices};
        ShopPartsListModel parts{link, users};
        ZonesListModel zones{link, devices, faults, users};
    };

    ServerThread m_server;
    std::unique_ptr<TcpProxy> m_proxy; // before the publication port
    std::unique_ptr<Client> m_client;
};
