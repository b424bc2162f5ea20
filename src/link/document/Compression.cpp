// SPDX-License-Identifier: GPL-3.0-or-later
#include "link/document/Compression.h"

#include <QDebug>
#include <QtEndian>
#include <algorithm>
#include <limits>
#include <zlib.h>

namespace {

constexpr int headerSize = 4; // the declared size

// Room left behind the output: readers of documents that look a few bytes ahead need no copy then.
constexpr int slack = 64;

// The largest array of Qt 5 and its header: qUncompress refuses a body that declares as much.
constexpr quint32 declaredLimit = std::numeric_limits<int>::max() - 24;

// One pass of zlib over a packed body; the stream is released with it.
class Inflater
{
public:
    explicit Inflater(const QByteArray &packed)
    {
        m_stream.next_in =
            reinterpret_cast<Bytef *>(const_cast<char *>(packed.constData())) + headerSize; // zlib only reads it
        m_stream.avail_in = static_cast<uInt>(packed.size() - headerSize);
        m_ready = inflateInit(&m_stream) == Z_OK;
    }

    ~Inflater()
    {
        if (m_ready)
            inflateEnd(&m_stream);
    }

    Inflater(const Inflater &) = delete;
    Inflater &operator=(const Inflater &) = delete;

    bool isReady() const { return m_ready; }

    // Fills the room, and tells what zlib said and how much of the room was used.
    int step(char *room, int size, int &used)
    {
        m_stream.next_out = reinterpret_cast<Bytef *>(room);
        m_stream.avail_out = static_cast<uInt>(size);
        int result = Z_OK;
        while (result == Z_OK && m_stream.avail_out > 0)
            result = inflate(&m_stream, Z_NO_FLUSH);
        used = size - static_cast<int>(m_stream.avail_out);
        return result;
    }

private:
    z_stream m_stream{};
    bool m_ready = false;
};

// The first room: what the body declares, but never more than a likely multiple of what really came. One byte more than
// the output lets zlib reach the end of the stream in the same step.
int firstRoom(quint32 declared, int packedSize, qint64 limit)
{
    constexpr qint64 smallest = 256;
    constexpr qint64 likelyRatio = 32; // lists of equal records pack to a twentieth
    return static_cast<int>(
        std::min({std::max(declared + 1LL, smallest), smallest + likelyRatio * packedSize, limit + 1}));
}

} // namespace

boost::optional<QByteArray> Compression::unpack(const QByteArray &packed, qint64 limit)
{
    if (packed.size() <= headerSize)
        return QByteArray(); // qCompress writes an empty array as four zero bytes
    const auto declared = qFromBigEndian<quint32>(packed.constData());
    if (declared >= declaredLimit)
        return QByteArray();
    limit = qBound<qint64>(0, limit, std::numeric_limits<int>::max() / 2);

    Inflater inflater(packed);
    if (!inflater.isReady())
        return QByteArray();
    QByteArray unpacked;
    qint64 room = firstRoom(declared, packed.size(), limit);
    qint64 size = 0;
    for (;;) {
        unpacked.reserve(static_cast<int>(room) + slack);
        unpacked.resize(static_cast<int>(room));
        int used = 0;
        const int result = inflater.step(unpacked.data() + size, static_cast<int>(room - size), used);
        size += used;
        if (size > limit) { // the room ends one byte after the limit
            qWarning() << "A packed body of" << packed.size() << "bytes unpacks to more than" << limit << "bytes";
            return boost::none;
        }
        if (result == Z_STREAM_END)
            break; // what follows the stream is passed over
        if (result != Z_OK)
            return QByteArray();
        room = std::min(2 * room, limit + 1);
    }
    unpacked.resize(static_cast<int>(size));
    return unpacked;
}
