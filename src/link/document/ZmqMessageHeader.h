// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>
#include <boost/optional.hpp>
#include <initializer_list>

// The header frame of every message: byte 0 the version (0), byte 1 the flags, the rest the id.
class ZmqMessageHeader
{
public:
    enum class Flags : quint8 {
        Raw = 1, // the body is binary
        Json = 2, // the body is a JSON document
        Compressed = 4 // the body has been packed with qCompress
    };

    ZmqMessageHeader(std::initializer_list<Flags> flags, const QByteArray &id);
    ZmqMessageHeader(quint8 flags, const QByteArray &id);

    bool isRaw() const { return has(Flags::Raw); }
    bool isJson() const { return has(Flags::Json); }
    bool isCompressed() const { return has(Flags::Compressed); }
    void setCompressed(bool compressed);

    quint8 version() const { return m_version; }
    quint8 flags() const { return m_flags; }
    const QByteArray &id() const { return m_id; }
    void setId(const QByteArray &id) { m_id = id; }

    QByteArray toByteArray() const;
    // None for fewer than 2 bytes. The version of the result is 0 whatever byte 0 held; unknown flag bits stay.
    static boost::optional<ZmqMessageHeader> fromByteArray(const QByteArray &bytes);

private:
    bool has(Flags flag) const { return m_flags & static_cast<quint8>(flag); }

    quint8 m_version = 0;
    quint8 m_flags = 0;
    QByteArray m_id;
};
