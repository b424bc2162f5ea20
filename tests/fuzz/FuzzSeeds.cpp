// SPDX-License-Identifier: GPL-3.0-or-later
// Writes the binary seeds: `fuzz_seeds FOLDER` fills a folder for each target. Seeds that are texts lie in seeds/.
#include "link/PublishedDocuments.h"
#include "link/document/ZmqBinaryMessage.h"
#include "link/document/ZmqMessageHeader.h"

#include <QDir>
#include <QFile>
#include <cstdio>

namespace {

bool write(const QDir &folder, const QString &name, const QByteArray &seed)
{
    QFile file(folder.filePath(name));
    return file.open(QIODevice::WriteOnly) && file.write(seed) == seed.size();
}

QByteArray frame(const ZmqMessageHeader &header, const QByteArray &body)
{
    const auto bytes = header.toByteArray();
    return char(bytes.size()) + bytes + body;
}

bool writeFrames(const QDir &folder)
{
    using Flags = ZmqMessageHeader::Flags;
    const ZmqMessageHeader packed({Flags::Json, Flags::Compressed}, "zones:17");
    const QByteArray body = R"({"data":[{"type":"zone","id":"1"}],"server_version":"4.5.2"})";
    auto lying = qCompress(body);
    lying[3] = 1;
    return write(folder, "packed", frame(packed, qCompress(body)))
        && write(folder, "stored", frame(packed, qCompress(body, 0))) && write(folder, "lying", frame(packed, lying))
        && write(folder, "empty", frame(packed, qCompress(QByteArray())))
        && write(folder, "large", frame(packed, qCompress(QByteArray(100000, 'a'))))
        && write(folder, "rubbish", frame(packed, qCompress(body) + "rubbish"))
        && write(folder, "raw", frame({{Flags::Raw}, "image_items:1"}, body));
}

bool writeBinaryMessages(const QDir &folder)
{
    ZmqBinaryMessage image("image_items");
    image.add("part_uid", QByteArray(16, '\x11'));
    image.add("image", "\x89PNG\r\n\x1a\n");
    image.add("format", "png");
    image.add("x", "1.5");
    ZmqBinaryMessage odd;
    odd.add({}, {});
    odd.add("topic", "a");
    odd.add("topic", "b");
    return write(folder, "image", image.toByteArray()) && write(folder, "odd", odd.toByteArray())
        && write(folder, "cut", image.toByteArray().chopped(3))
        && write(folder, "negative", QByteArray("\xFF\xFF\xFF\xFFkey", 7));
}

bool writePublications(const QDir &folder)
{
    bool written = true;
    for (const auto &published : publishedDocuments()) {
        const auto name = QString::fromLatin1(published.topic).replace('/', '_');
        written = write(folder, name, published.topic + '\n' + published.document()) && written;
    }
    return written && write(folder, "empty", "zones\n" + PublishedDocument::list({}))
        && write(folder, "errors", R"(zones
{"errors":[{"code":"auth_error","title":"t","detail":"d"}]})");
}

} // namespace

int main(int argc, char **argv)
{
    if (argc != 2) {
        std::fprintf(stderr, "usage: fuzz_seeds FOLDER\n");
        return 2;
    }
    const QDir root(QFile::decodeName(argv[1]));
    const bool written = root.mkpath("frames") && writeFrames(root.filePath("frames")) && root.mkpath("binary")
        && writeBinaryMessages(root.filePath("binary")) && root.mkpath("publications")
        && writePublications(root.filePath("publications"));
    if (!written)
        std::fprintf(stderr, "The seeds could not be written below %s\n", argv[1]);
    return written ? 0 : 1;
}
