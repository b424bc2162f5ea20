// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>
#include <QImage>
#include <QSize>
#include <QString>

// Pictures that came from outside: how large they would be is looked up before they are decoded, since a file of a few
// kilobytes may unpack to gigabytes.
namespace PictureReader {

constexpr qint64 maxPixels = 64LL * 1024 * 1024;

struct Picture
{
    QImage image; // null if there is an error
    QString error;
};

// The content decides about the format. A requested size with both lengths is scaled to, whatever the proportions.
Picture read(const QByteArray &bytes, const QSize &requestedSize);

} // namespace PictureReader
