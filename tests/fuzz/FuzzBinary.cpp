// SPDX-License-Identifier: GPL-3.0-or-later
// The key-value body of uploads and downloads.
#include "fuzz/Fuzz.h"
#include "link/document/ZmqBinaryMessage.h"

void Fuzz::fuzzOne(const QByteArray &input)
{
    const auto message = ZmqBinaryMessage::fromByteArray(input);
    const auto written = message.toByteArray();
    require(input.startsWith(written), "complete entries are written as they were read");

    const auto again = ZmqBinaryMessage::fromByteArray(written);
    require(again.entries().size() == message.entries().size(), "what was written reads whole");
    for (const auto &entry : message.entries()) {
        const auto *value = message.get(entry.key);
        require(value, "every key is found");
    }
    require(message.entries().empty() || message.get(message.entries().front().key) == &message.entries().front().value,
            "the first entry of a key counts");
}
