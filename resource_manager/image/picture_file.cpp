#include "picture_file.h"

#include <QFile>
#include <QFileInfo>
#include <QImageReader>
#include <QList>

#include <algorithm>

namespace velarion {

picture_file find_picture_file(const QString& path) {
    const QFileInfo info(path);
    if (info.exists()) {
        return info.isFile() ? picture_file{path, false} : picture_file{QString(), true};
    }
    for (const QByteArray& format : QImageReader::supportedImageFormats()) {
        const QString completed = path + QLatin1Char('.') + QLatin1String(format.constData());
        const QFileInfo found(completed);
        if (found.exists()) {
            return found.isFile() ? picture_file{completed, false} : picture_file{QString(), true};
        }
    }
    return picture_file{QString(), false};
}

bool read_file(const QString& path, qint64 limit, QByteArray& bytes) {
    const QFileInfo info(path);
    QFile file(path);
    if (!info.isFile() || !file.open(QIODevice::ReadOnly | QIODevice::Unbuffered)) {
        return false;
    }
    // Memory is taken for what is asked for: that is the file's size, and the rest only if it grew.
    bytes = file.read(std::min(info.size(), limit) + 1);
    if (bytes.size() > info.size()) {
        bytes += file.read(limit + 1 - bytes.size());
    }
    return bytes.size() <= limit && file.error() == QFile::NoError;
}

} // namespace velarion
