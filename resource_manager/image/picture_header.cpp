#include "picture_header.h"

#include "picture_size.h"

#include <QByteArray>
#include <QFile>
#include <QIODevice>
#include <QImageReader>

#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <limits>

namespace velarion {

namespace {

constexpr char PNG_MARK[] = "\x89PNG\r\n\x1A\n\0\0\0\rIHDR";
constexpr int PNG_MARK_SIZE = 16;
constexpr int PNG_HEADER_SIZE = 24; // up to its width and height
constexpr int GIF_SCREEN_AT = 6;
constexpr int GIF_HEADER_SIZE = 10;
constexpr int ICON_BYTES_AT = 14; // count and place of the first picture, in the directory

QByteArray bytes_at(QIODevice& device, qint64 position, int count) {
    const QByteArray bytes = device.seek(position) ? device.read(count) : QByteArray();
    return bytes.size() == count ? bytes : QByteArray(count, '\0');
}

std::uint32_t little_endian(const QByteArray& bytes) {
    std::uint32_t number = 0;
    for (int i = bytes.size(); i > 0; --i) {
        number = number << 8U | static_cast<unsigned char>(bytes[i - 1]);
    }
    return number;
}

int big_endian(const QByteArray& bytes, int at) {
    std::uint32_t number = 0;
    for (int i = 0; i < 4; ++i) {
        number = number << 8U | static_cast<unsigned char>(bytes[at + i]);
    }
    return static_cast<int>(number);
}

QSize png_size(QIODevice& device, qint64 position) {
    const QByteArray header = bytes_at(device, position, PNG_HEADER_SIZE);
    const bool is_png = header.startsWith(QByteArray::fromRawData(PNG_MARK, PNG_MARK_SIZE));
    return is_png ? QSize(big_endian(header, PNG_MARK_SIZE), big_endian(header, PNG_MARK_SIZE + 4)) : QSize();
}

/** The size of the screen that the frames of an animation are drawn on. */
QSize screen_size(QIODevice& device) {
    const QByteArray header = bytes_at(device, 0, GIF_HEADER_SIZE);
    const std::uint32_t screen = little_endian(header.mid(GIF_SCREEN_AT));
    const bool is_gif = header.startsWith("GIF87a") || header.startsWith("GIF89a");
    return is_gif ? QSize(static_cast<int>(screen & 0xFFFFU), static_cast<int>(screen >> 16U)) : QSize();
}

QSize animation_size(QImageReader& reader) {
    const QSize screen = screen_size(*reader.device());
    reader.device()->seek(0);
    return screen.isEmpty() ? reader.size().expandedTo(screen) : screen; // size() reads the whole file
}

/** The size of the first picture, which may be a PNG file larger than the directory says. */
QSize icon_size(QImageReader& reader) {
    const QSize told = reader.size();
    QIODevice& device = *reader.device();
    const std::uint32_t count = little_endian(bytes_at(device, ICON_BYTES_AT, 4));
    const std::uint32_t offset = little_endian(bytes_at(device, ICON_BYTES_AT + 4, 4));
    const bool is_allowed = count < PIXMAP_BITS_END / 8; // the toolkit takes memory for what is told
    return is_allowed ? told.expandedTo(png_size(device, offset)) : QSize();
}

} // namespace

QSize size_by_name(const QString& path) {
    const bool is_png = path.endsWith(QLatin1String(".png"), Qt::CaseInsensitive);
    const bool is_gif = path.endsWith(QLatin1String(".gif"), Qt::CaseInsensitive);
    QFile file(path);
    if ((!is_png && !is_gif) || !file.open(QIODevice::ReadOnly | QIODevice::Unbuffered)) {
        return QSize();
    }
    return is_png ? png_size(file, 0) : screen_size(file);
}

QSize bitmap_size(QImageReader& reader) {
    const QByteArray format = reader.format();
    if (format == "gif") {
        return animation_size(reader);
    }
    if (format == "ico" || format == "cur") {
        return icon_size(reader);
    }
    const QSize told = reader.size();
    const int height = std::max(told.height(), -std::numeric_limits<int>::max());
    return format == "bmp" ? QSize(told.width(), std::abs(height)) : told;
}

} // namespace velarion
