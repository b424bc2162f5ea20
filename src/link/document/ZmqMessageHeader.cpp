// SPDX-License-Identifier: GPL-3.0-or-later
#include "link/document/ZmqMessageHeader.h"

namespace {

constexpr int idOffset = 2; // after the version and the flags

} // namespace

ZmqMessageHeader::ZmqMessageHeader(std::initializer_list<Flags> flags, const QByteArray &id)
    : m_id(id)
{
    for (const auto flag : flags)
        m_flags |= static_cast<quint8>(flag);
}

ZmqMessageHeader::ZmqMessageHeader(quint8 flags, const QByteArray &id)
    : m_flags(flags)
    , m_id(id)
{}

void ZmqMessageHeader::setCompressed(bool compressed)
{
    constexpr auto bit = static_cast<quint8>(Flags::Compressed);
    m_flags = static_cast<quint8>(compressed ? m_flags | bit : m_flags & ~bit);
}

QByteArray ZmqMessageHeader::toByteArray() const
{
    QByteArray bytes;
    bytes.reserve(idOffset + m_id.size());
    bytes.append(static_cast<char>(m_version));
    bytes.append(static_cast<char>(m_flags));
    bytes.append(m_id);
    return bytes;
}

boost::optional<ZmqMessageHeader> ZmqMessageHeader::fromByteArray(const QByteArray &bytes)
{
    if (bytes.size() < idOffset)
        return boost::none;
    return ZmqMessageHeader(static_cast<quint8>(bytes.at(1)), bytes.mid(idOffset));
}
