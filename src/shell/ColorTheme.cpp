// SPDX-License-Identifier: GPL-3.0-or-later
#include "shell/ColorTheme.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace {

struct Stop
{
    int brightness;
    QColor color;
};

const auto &ramp()
{
    static const QColor red(QStringLiteral("#f24841"));
    static const std::array<Stop, 6> stops{{
        {0, red.darker(200)},
        {20, red},
        {40, QColor(QStringLiteral("#ff7900"))},
        {60, QColor(QStringLiteral("#ffb000"))},
        {80, QColor(QStringLiteral("#ffe500"))}, // brighter than the palette's yellow
        {100, QColor(QStringLiteral("#00c34a"))},
    }};
    return stops;
}

} // namespace

ColorTheme::ColorTheme(QObject *parent)
    : QObject(parent)
{}

QColor ColorTheme::blue() const
{
    return QColor(QStringLiteral("#1483dc"));
}

QColor ColorTheme::grey() const
{
    return QColor(QStringLiteral("#dde1e4"));
}

QColor ColorTheme::green() const
{
    return QColor(QStringLiteral("#00a84c"));
}

QColor ColorTheme::red() const
{
    return QColor(QStringLiteral("#99110a"));
}

QColor ColorTheme::yellow() const
{
    return QColor(QStringLiteral("#e1e500"));
}

QColor ColorTheme::orange() const
{
    return QColor(QStringLiteral("#ff7900"));
}

QColor ColorTheme::brightnessToColor(int brightness)
{
    if (brightness < 1)
        return QColor(QStringLiteral("#d0d5d9"));
    const auto &stops = ramp();
    if (brightness >= stops.back().brightness)
        return stops.back().color;

    const auto upper = std::find_if(stops.begin(), stops.end(),
                                    [brightness](const Stop &stop) { return stop.brightness >= brightness; });
    if (upper->brightness == brightness)
        return upper->color;
    const auto lower = std::prev(upper);
    const qreal weight = qreal(upper->brightness - brightness) / (upper->brightness - lower->brightness);
    const auto mix = [weight](int low, int high) { return static_cast<int>(low * weight + high * (1 - weight)); };
    return QColor(mix(lower->color.red(), upper->color.red()), mix(lower->color.green(), upper->color.green()),
                  mix(lower->color.blue(), upper->color.blue()));
}

QColor ColorTheme::blend(const QColor &first, const QColor &second, qreal mix)
{
    if (!std::isfinite(mix))
        return first;
    // A mix beyond both ends would leave the range that a channel has.
    const auto channel = [mix](qreal from, qreal to) { return qBound<qreal>(0.0, from * (1 - mix) + to * mix, 1.0); };
    return QColor::fromRgbF(channel(first.redF(), second.redF()), channel(first.greenF(), second.greenF()),
                            channel(first.blueF(), second.blueF()), channel(first.alphaF(), second.alphaF()));
}
