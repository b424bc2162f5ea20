// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>
#include <vector>

// An ordered list of keys and values that carries file-sized data without JSON. Keys may repeat.
// Each entry on the wire: key length, key, value length, value; lengths are signed 32 bit, little-endian.
class ZmqBinaryMessage
{
public:
    struct Entry
    {
        QByteArray key;
        QByteArray value;
    };

    ZmqBinaryMessage() = default;
    explicit ZmqBinaryMessage(const QByteArray &topic); // one entry "topic", the start of every upload

    void add(const QByteArray &key, const QByteArray &value);
    const QByteArray *get(const QByteArray &key) const; // the first of that key, or null
    const std::vector<Entry> &entries() const { return m_entries; }

    QByteArray toByteArray() const;
    // A body that ends inside an entry, or holds a length that is negative or too large, is read up to the last
    // complete entry, with a warning.
    static ZmqBinaryMessage fromByteArray(const QByteArray &bytes);

private:
    std::vector<Entry> m_entries;
};
