// SPDX-License-Identifier: GPL-3.0-or-later
#include "demo/Garbage.h"

#include "link/document/ZmqMessageHeader.h"

namespace Demo {

Garbage::Garbage(quint32 seed)
    : m_random(seed)
{}

int Garbage::number(int least, int most)
{
    return least + static_cast<int>(m_random() % static_cast<quint32>(most - least + 1));
}

QByteArray Garbage::bytes(int most)
{
    QByteArray bytes(number(0, most), '\0');
    for (auto &byte : bytes)
        byte = static_cast<char>(number(0, 255));
    return bytes;
}

QList<QByteArray> Garbage::frames()
{
    using Flags = ZmqMessageHeader::Flags;
    const QByteArray id = "ping:" + QByteArray::number(number(1, 100000000));
    const auto json = ZmqMessageHeader({Flags::Json}, id).toByteArray();
    const auto packed = ZmqMessageHeader({Flags::Json, Flags::Compressed}, id).toByteArray();
    const auto raw = ZmqMessageHeader({Flags::Raw}, id).toByteArray();
    switch (number(0, 9)) {
    case 0: return {QByteArray()};
    case 1: return {QByteArray(), bytes(1)};
    case 2: return {QByteArray(), bytes(1), bytes(64)};
    case 3: return {bytes(16), bytes(16)};
    case 4: return {QByteArray(), QByteArray(1, '\0') + bytes(32), bytes(256)};
    case 5: return {QByteArray(), json, bytes(256)};
    case 6: return {QByteArray(), packed, QByteArray(4, '\xff') + bytes(256)};
    case 7: return {QByteArray(), packed, qCompress(bytes(256))};
    case 8: return {QByteArray(), raw, bytes(256)};
    default: return {QByteArray(), json, R"({"data": {"type": 1, "id": [], "attributes": null}, "server_version": 4})"};
    }
}

} // namespace Demo
