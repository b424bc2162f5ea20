// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

class AbstractBackendCommunicator;
class ButtonsListModel;
class DeviceFaultsListModel;
class DevicesListModel;
class DeviceTypesListModel;
class IndicatorsListModel;
class ShopPartsListModel;
class UsersListModel;
class ZonesListModel;

// What types that QML creates by a default constructor need and nobody can hand them. The manager fills it before the
// first document loads and empties it when it goes; null until then. Owns nothing.
struct SharedModels
{
    AbstractBackendCommunicator *communicator = nullptr;
    UsersListModel *users = nullptr;
    DeviceTypesListModel *deviceTypes = nullptr;
    DevicesListModel *devices = nullptr;
    ShopPartsListModel *shopParts = nullptr;
    ZonesListModel *zones = nullptr;
    DeviceFaultsListModel *deviceFaults = nullptr;
    ButtonsListModel *buttons = nullptr;
    IndicatorsListModel *indicators = nullptr;

    static SharedModels &instance();
};
