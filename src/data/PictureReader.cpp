// SPDX-License-Identifier: GPL-3.0-or-later
#include "data/PictureReader.h"

#include <QBuffer>
#include <QImageReader>
#include <QXmlStreamReader>
#include <algorithm>
#include <iterator>

namespace {

bool isAffordable(const QSize &size)
{
    return size.isValid() && static_cast<qint64>(size.width()) * size.height() <= PictureReader::maxPixels;
}

// Containers decode pictures within them whose size their own header need not tell, and packed drawings unpack without
// a bound.
bool isContainer(const QByteArray &format)
{
    static const QByteArray containers[] = {"cur", "icns", "ico", "pdf", "svgz"};
    return std::find(std::begin(containers), std::end(containers), format) != std::end(containers);
}

// A picture within a drawing: only one that stands there itself, since a name would open a file of this machine.
bool isAffordableLink(const QStringRef &link)
{
    static const QLatin1String base64("base64,"); // the last one counts, as it does for the reader of drawings
    const int start = link.lastIndexOf(base64);
    if (!link.startsWith(QLatin1String("data:")) || start < 0)
        return false;
    auto bytes = QByteArray::fromBase64(link.mid(start + base64.size()).toLatin1());
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::ReadOnly);
    QImageReader reader(&buffer);
    const auto format = reader.format();
    return !isContainer(format) && format != "svg" && isAffordable(reader.size());
}

// The reader of drawings decodes the pictures within when it is asked for the size alone.
bool isAffordableDrawing(const QByteArray &bytes)
{
    constexpr int maxPictures = 64;
    QXmlStreamReader reader(bytes);
    int pictures = 0;
    while (!reader.atEnd()) {
        if (reader.readNext() != QXmlStreamReader::StartElement || reader.name() != QLatin1String("image"))
            continue;
        ++pictures;
        const auto attributes = reader.attributes();
        for (const auto &attribute : attributes) {
            if (attribute.name() == QLatin1String("href")
                && (pictures > maxPictures || !isAffordableLink(attribute.value())))
                return false;
        }
    }
    return true;
}

} // namespace

PictureReader::Picture PictureReader::read(const QByteArray &bytes, const QSize &requestedSize)
{
    if (requestedSize.isValid() && !isAffordable(requestedSize))
        return {{}, QStringLiteral("The size that is asked for is too large")};
    QBuffer buffer;
    buffer.setData(bytes);
    buffer.open(QIODevice::ReadOnly);
    QImageReader reader(&buffer);
    const auto format = reader.format();
    if (isContainer(format) || (format == "svg" && !isAffordableDrawing(bytes)))
        return {{}, QStringLiteral("A picture of this kind is not shown")};
    if (format.isEmpty() || !reader.size().isValid())
        return {{}, QStringLiteral("The picture can't be read")};
    if (!isAffordable(reader.size()))
        return {{}, QStringLiteral("The picture is too large")};
    auto image = reader.read();
    if (image.isNull())
        return {{}, QStringLiteral("The picture can't be read")};
    // A length of 0 is how an item says that it asks for none.
    if (!requestedSize.isEmpty() && requestedSize != image.size())
        image = image.scaled(requestedSize, Qt::IgnoreAspectRatio, Qt::FastTransformation);
    return {image, {}};
}
