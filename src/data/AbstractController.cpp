// SPDX-License-Identifier: GPL-3.0-or-later
#include "data/AbstractController.h"

AbstractController::AbstractController(AbstractBackendCommunicator &communicator, QObject *parent)
    : QObject(parent)
    , m_communicator(communicator)
{}
