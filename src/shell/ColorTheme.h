// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QColor>
#include <QObject>

// The palette, and the colour ramp that shows brightness. QML knows it as "Colors".
class ColorTheme : public QObject
{
    Q_OBJECT
    Q_PROPERTY(QColor blue READ blue CONSTANT)
    Q_PROPERTY(QColor grey READ grey CONSTANT)
    Q_PROPERTY(QColor green READ green CONSTANT)
    Q_PROPERTY(QColor red READ red CONSTANT)
    Q_PROPERTY(QColor yellow READ yellow CONSTANT)
    Q_PROPERTY(QColor orange READ orange CONSTANT)

public:
    explicit ColorTheme(QObject *parent = nullptr);

    QColor blue() const;
    QColor grey() const;
    QColor green() const;
    QColor red() const;
    QColor yellow() const;
    QColor orange() const;

    // Brightness in percent; below 1 is a lamp that is off.
    Q_INVOKABLE static QColor brightnessToColor(int brightness);
    // The first colour at 0, the second at 1.
    Q_INVOKABLE static QColor blend(const QColor &first, const QColor &second, qreal mix);
};
