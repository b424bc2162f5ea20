// SPDX-License-Identifier: GPL-3.0-or-later
#include "link/document/ZmqBinaryMessage.h"

#include <QDebug>
#include <QtEndian>
#include <algorithm>
#include <boost/optional.hpp>
#include <limits>

namespace {

constexpr int lengthSize = 4;

void appendField(QByteArray &bytes, const QByteArray &field)
{
    char length[lengthSize];
    qToLittleEndian<qint32>(field.size(), length);
    bytes.append(length, lengthSize);
    bytes.append(field);
}

// Hands out the bytes of a body one field after the other. A step that asks for more than is left, or for a negative
// count, fails with a warning and leaves the position where it was.
class ByteConsumer
{
public:
    explicit ByteConsumer(const QByteArray &bytes)
        : m_bytes(bytes)
    {}

    bool atEnd() const { return m_position == m_bytes.size(); }

    boost::optional<QByteArray> field()
    {
        const auto length = consume(lengthSize);
        if (!length)
            return boost::none;
        return consume(qFromLittleEndian<qint32>(length->constData()));
    }

private:
    boost::optional<QByteArray> consume(qint64 count)
    {
        const qint64 left = m_bytes.size() - m_position;
        if (count < 0 || count > left) {
            // Bodies carry whole files: of a long one the log gets the start, which holds the first keys.
            constexpr int shown = 256;
            qWarning() << "Byte consumer trying to consume" << count << "bytes when only" << left
                       << "bytes are left on:" << m_bytes.left(shown);
            return boost::none;
        }
        const auto start = static_cast<int>(m_position);
        m_position += count;
        return m_bytes.mid(start, static_cast<int>(count));
    }

    const QByteArray &m_bytes;
    qint64 m_position = 0;
};

} // namespace

ZmqBinaryMessage::ZmqBinaryMessage(const QByteArray &topic)
{
    add("topic", topic);
}

void ZmqBinaryMessage::add(const QByteArray &key, const QByteArray &value)
{
    m_entries.push_back({key, value});
}

const QByteArray *ZmqBinaryMessage::get(const QByteArray &key) const
{
    const auto found =
        std::find_if(m_entries.begin(), m_entries.end(), [&key](const Entry &entry) { return entry.key == key; });
    return found == m_entries.end() ? nullptr : &found->value;
}

QByteArray ZmqBinaryMessage::toByteArray() const
{
    qint64 size = 0;
    for (const auto &entry : m_entries)
        size += 2 * lengthSize + qint64(entry.key.size()) + entry.value.size();
    // An array that cannot hold the message would end the program.
    constexpr qint64 maxSize = std::numeric_limits<int>::max() / 2;
    if (size > maxSize) {
        qWarning() << "A binary message of" << size << "bytes is too large";
        return {};
    }

    QByteArray bytes;
    bytes.reserve(static_cast<int>(size));
    for (const auto &entry : m_entries) {
        appendField(bytes, entry.key);
        appendField(bytes, entry.value);
    }
    return bytes;
}

ZmqBinaryMessage ZmqBinaryMessage::fromByteArray(const QByteArray &bytes)
{
    ZmqBinaryMessage message;
    ByteConsumer consumer(bytes);
    while (!consumer.atEnd()) {
        const auto key = consumer.field();
        if (!key)
            break;
        const auto value = consumer.field();
        if (!value)
            break;
        message.add(*key, *value);
    }
    return message;
}
