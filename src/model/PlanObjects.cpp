// SPDX-License-Identifier: GPL-3.0-or-later
#include "model/PlanObjects.h"

#include <QCryptographicHash>
#include <QFile>
#include <QFileInfo>
#include <tuple>

namespace Model {

namespace {

// A picture travels in one message, and the link takes none that is larger.
constexpr qint64 maxPictureSize = 256 * 1024 * 1024;

auto fields(const Button &button)
{
    return std::tie(button.uid, button.partUid, button.name, button.position, button.width, button.height,
                    button.onColor, button.offColor, button.toggle, button.blueprints);
}

auto fields(const ButtonState &state)
{
    return std::tie(state.uid, state.state);
}

auto fields(const Indicator::DisplayValue &value)
{
    return std::tie(value.device, value.property);
}

auto fields(const Indicator &indicator)
{
    return std::tie(indicator.uid, indicator.partUid, indicator.indicatorType, indicator.label, indicator.icon,
                    indicator.position, indicator.width, indicator.height, indicator.textColor, indicator.iconColor,
                    indicator.horizontalAlignment, indicator.displayValue);
}

auto fields(const IndicatorState &state)
{
    return std::tie(state.uid, state.opacity, state.text, state.textColor, state.icon, state.iconColor);
}

auto fields(const ImageItem::Image &image)
{
    return std::tie(image.data, image.format);
}

auto fields(const ImageItem &item)
{
    return std::tie(item.uid, item.partUid, item.name, item.x, item.y, item.width, item.height, item.cropX, item.cropY,
                    item.cropWidth, item.cropHeight, item.opacity, item.onTop, item.locked, item.image);
}

auto fields(const View3DItem &item)
{
    return std::tie(item.uid, item.partUid, item.name, item.x, item.y, item.z, item.scaleX, item.scaleY, item.scaleZ,
                    item.rotationX, item.rotationY, item.rotationZ, item.opacity, item.locked, item.modelData);
}

} // namespace

ImageItem::Image::Image(const QByteArray &data, const QString &format)
    : data(data)
    , format(format)
{}

ImageItem::Image ImageItem::Image::fromFile(const QString &path)
{
    // Opening a pipe would wait for its writer, and a device has no end.
    const QFileInfo info(path);
    QFile file(path);
    if (!info.isFile() || info.size() > maxPictureSize || !file.open(QIODevice::ReadOnly))
        return {};
    const auto size = file.size(); // asked once more: the file may have grown
    if (size > maxPictureSize)
        return {};
    auto data = size == 0 ? QByteArray("") : file.read(size);
    if (file.error() != QFileDevice::NoError)
        return {};
    return {data, info.suffix()};
}

QByteArray View3DItem::hash() const
{
    return QCryptographicHash::hash(modelData, QCryptographicHash::Sha256);
}

bool operator==(const Button &left, const Button &right)
{
    return fields(left) == fields(right);
}

bool operator==(const ButtonState &left, const ButtonState &right)
{
    return fields(left) == fields(right);
}

bool operator==(const Indicator::DisplayValue &left, const Indicator::DisplayValue &right)
{
    return fields(left) == fields(right);
}

bool operator==(const Indicator &left, const Indicator &right)
{
    return fields(left) == fields(right);
}

bool operator==(const IndicatorState &left, const IndicatorState &right)
{
    return fields(left) == fields(right);
}

bool operator==(const ImageItem::Image &left, const ImageItem::Image &right)
{
    return fields(left) == fields(right);
}

bool operator==(const ImageItem &left, const ImageItem &right)
{
    return fields(left) == fields(right);
}

bool operator==(const View3DItem &left, const View3DItem &right)
{
    return fields(left) == fields(right);
}

} // namespace Model
