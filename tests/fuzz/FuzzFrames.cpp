// SPDX-License-Identifier: GPL-3.0-or-later
// A received header frame and its packed body. The first byte of the input tells where the body begins.
#include "fuzz/Fuzz.h"
#include "link/document/Compression.h"
#include "link/document/ZmqMessageHeader.h"

#include <QtEndian>
#include <algorithm>

namespace {

void readHeader(const QByteArray &frame)
{
    const auto header = ZmqMessageHeader::fromByteArray(frame);
    Fuzz::require(bool(header) == (frame.size() >= 2), "a frame of two bytes or more is a header");
    if (!header)
        return;
    auto expected = frame;
    expected[0] = '\0';
    Fuzz::require(header->toByteArray() == expected, "a header is written as it was read, with version 0");
    auto packed = *header;
    packed.setCompressed(true);
    Fuzz::require(packed.isCompressed() && packed.isJson() == header->isJson() && packed.isRaw() == header->isRaw(),
                  "one flag is set alone");
}

void unpack(const QByteArray &body)
{
    constexpr qint64 smallLimit = 4096;
    const auto bounded = Compression::unpack(body, smallLimit);
    Fuzz::require(!bounded || bounded->size() <= smallLimit, "the output stays below its limit");

    // Qt takes the declared memory at once: compare only where that is little.
    constexpr quint32 comparable = 1024 * 1024;
    if (body.size() > 4 && qFromBigEndian<quint32>(body.constData()) > comparable)
        return;
    const auto expected = qUncompress(body);
    const auto unpacked = Compression::unpack(body);
    Fuzz::require(unpacked && *unpacked == expected, "a body unpacks as with Qt");
    Fuzz::require(bool(bounded) == (expected.size() <= smallLimit) || expected.isEmpty(), "only size is refused");
    Fuzz::require(!bounded || *bounded == expected, "a limit does not change what passes");
}

} // namespace

void Fuzz::fuzzOne(const QByteArray &input)
{
    if (input.isEmpty())
        return;
    const int headerSize = std::min(static_cast<uchar>(input.at(0)) % 32, input.size() - 1);
    readHeader(input.mid(1, headerSize));
    unpack(input.mid(1 + headerSize));
}
