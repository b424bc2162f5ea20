// SPDX-License-Identifier: GPL-3.0-or-later
#include "data/ImageStore.h"

#include <utility>

ImageStore::Found ImageStore::find(const std::string &id) const
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    const auto picture = m_pictures.find(id);
    return {picture == m_pictures.end() ? nullptr : picture->second, m_generation};
}

bool ImageStore::put(const std::string &id, std::uint64_t generation, Bytes bytes)
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    if (generation != m_generation)
        return false;
    m_pictures[id].swap(bytes);
    return true;
}

void ImageStore::clear()
{
    std::unordered_map<std::string, Bytes> old; // freed after the lock
    const std::lock_guard<std::mutex> lock(m_mutex);
    m_pictures.swap(old);
    ++m_generation;
}
