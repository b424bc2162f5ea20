// SPDX-License-Identifier: GPL-3.0-or-later
// Draws a picture from an SVG file while the program is being built: svg_to_png FILE.svg FILE.png WIDTH HEIGHT
#include <QImage>
#include <QPainter>
#include <QSvgRenderer>
#include <cstdio>

int main(int argc, char **argv)
{
    const QSize size = argc == 5 ? QSize(QByteArray(argv[3]).toInt(), QByteArray(argv[4]).toInt()) : QSize();
    if (size.isEmpty() || size.width() > 4096 || size.height() > 4096) {
        std::fprintf(stderr, "Usage: svg_to_png FILE.svg FILE.png WIDTH HEIGHT\n");
        return 2;
    }
    QSvgRenderer renderer(QString::fromLocal8Bit(argv[1]));
    if (!renderer.isValid()) {
        std::fprintf(stderr, "%s is no SVG file\n", argv[1]);
        return 1;
    }
    QImage image(size, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    {
        QPainter painter(&image);
        painter.setRenderHint(QPainter::Antialiasing);
        renderer.render(&painter);
    }
    if (!image.save(QString::fromLocal8Bit(argv[2]), "PNG")) {
        std::fprintf(stderr, "Can not write %s\n", argv[2]);
        return 1;
    }
    return 0;
}
