// SPDX-License-Identifier: GPL-3.0-or-later
#include "fuzz/Fuzz.h"

#include <QtGlobal>

extern "C" int LLVMFuzzerInitialize(int *, char ***)
{
    // Damaged input is what this is about: its warnings would only slow the run.
    qInstallMessageHandler([](QtMsgType, const QMessageLogContext &, const QString &) {});
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    Fuzz::fuzzOne(QByteArray(reinterpret_cast<const char *>(data), static_cast<int>(size)));
    return 0;
}
