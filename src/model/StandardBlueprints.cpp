// SPDX-License-Identifier: GPL-3.0-or-later
#include "model/StandardBlueprints.h"

namespace Model {
namespace StandardBlueprints {

QUuid persistentUID(unsigned short n)
{
    return QUuid(3776, n, 0, 0, 0, 0, 0, 0, 0, 0, static_cast<uchar>(n & 0xff));
}

QUuid indoorLuxSensorUid()
{
    return persistentUID(1);
}

QUuid setPowerUid()
{
    return persistentUID(2);
}

QUuid setAutoModeUid()
{
    return persistentUID(3);
}

QUuid outdoorLuxSensorUid()
{
    return persistentUID(4);
}

QUuid setManualModeUid()
{
    return persistentUID(5);
}

QUuid debugAllNodesUid()
{
    return persistentUID(6);
}

} // namespace StandardBlueprints
} // namespace Model
