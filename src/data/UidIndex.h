// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QUuid>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <vector>

// Hash of a uid for tables. Uids made by hand differ in a few bits only, so both halves are mixed.
struct UidHash
{
    std::size_t operator()(const QUuid &uid) const noexcept
    {
        static_assert(sizeof(QUuid) == 2 * sizeof(std::uint64_t), "a uid is two words");
        std::uint64_t words[2];
        std::memcpy(words, &uid, sizeof(words));
        std::uint64_t hash = (words[0] ^ (words[1] << 29 | words[1] >> 35)) * 0x9e3779b97f4a7c15ULL;
        hash ^= hash >> 32;
        return static_cast<std::size_t>(hash * 0xd6e8feb86659fd93ULL);
    }
};

// Positions by uid, for one pass over lists of thousands: an open table without a node for each entry, made for a
// number of entries known beforehand.
class UidIndex
{
public:
    explicit UidIndex(std::size_t mostEntries)
    {
        std::size_t size = 16;
        while (size < mostEntries * 2) // at least half of the slots stay free, so that every search ends
            size *= 2;
        m_slots.resize(size);
        m_entries.reserve(mostEntries);
    }

    // Gives the position that stands for the uid, that of its first entry.
    int insertFirst(const QUuid &uid, int position)
    {
        const auto found = search(uid);
        if (m_slots[found.slot].entry < 0)
            add(found, uid, position);
        return m_entries[static_cast<std::size_t>(m_slots[found.slot].entry)].position;
    }

    // A later entry stands for its uid.
    void insertLast(const QUuid &uid, int position)
    {
        const auto found = search(uid);
        if (m_slots[found.slot].entry < 0)
            add(found, uid, position);
        else
            m_entries[static_cast<std::size_t>(m_slots[found.slot].entry)].position = position;
    }

    int find(const QUuid &uid) const // -1: not there
    {
        const auto entry = m_slots[search(uid).slot].entry;
        return entry < 0 ? -1 : m_entries[static_cast<std::size_t>(entry)].position;
    }

private:
    struct Slot
    {
        std::uint32_t tag = 0; // of the hash, so that a foreign uid is seldom fetched
        std::int32_t entry = -1;
    };

    struct Entry
    {
        QUuid uid;
        int position;
    };

    struct Place
    {
        std::size_t slot;
        std::uint32_t tag;
    };

    Place search(const QUuid &uid) const
    {
        const auto hash = static_cast<std::uint64_t>(UidHash()(uid));
        const auto tag = static_cast<std::uint32_t>(hash >> 32);
        const auto mask = m_slots.size() - 1;
        auto slot = static_cast<std::size_t>(hash) & mask;
        while (m_slots[slot].entry >= 0 && !(m_slots[slot].tag == tag && uidAt(slot) == uid))
            slot = (slot + 1) & mask;
        return {slot, tag};
    }

    const QUuid &uidAt(std::size_t slot) const { return m_entries[static_cast<std::size_t>(m_slots[slot].entry)].uid; }

    void add(const Place &place, const QUuid &uid, int position)
    {
        Q_ASSERT(m_entries.size() * 2 <= m_slots.size());
        m_slots[place.slot].tag = place.tag;
        m_slots[place.slot].entry = static_cast<std::int32_t>(m_entries.size());
        m_entries.push_back({uid, position});
    }

    std::vector<Slot> m_slots;
    std::vector<Entry> m_entries;
};
