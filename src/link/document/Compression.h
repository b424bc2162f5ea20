// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>
#include <boost/optional.hpp>

namespace Compression {

// A packed body may not unpack to more than this, whatever size it declares.
constexpr qint64 outputLimit = 256LL * 1024 * 1024;

// What qUncompress gives (4 bytes of declared size, big-endian, then a zlib stream): a damaged body unpacks to an empty
// one, and what follows the stream is passed over. The output is bounded, and memory is taken as it comes, not as the
// declared size tells. None for a body that unpacks to more than the limit.
boost::optional<QByteArray> unpack(const QByteArray &packed, qint64 limit = outputLimit);

} // namespace Compression
