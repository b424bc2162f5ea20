// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>
#include <memory>
#include <mutex>
#include <string>
#include <unordered_map>

// The pictures of the present connection by their ids, as the bytes of their files. Any thread may call it. What was
// asked for before the store was cleared belongs to an earlier connection: the generation tells, and keeps it out.
class ImageStore
{
public:
    using Bytes = std::shared_ptr<const std::string>;

    struct Found
    {
        Bytes bytes; // none: the picture is not here
        std::uint64_t generation = 0; // to hand to put() with the answer
    };

    Found find(const std::string &id) const;
    // Replaces what was there. False, and nothing is stored, if the store was cleared since that generation.
    bool put(const std::string &id, std::uint64_t generation, Bytes bytes);
    void clear();

private:
    mutable std::mutex m_mutex;
    std::unordered_map<std::string, Bytes> m_pictures;
    std::uint64_t m_generation = 0;
};
