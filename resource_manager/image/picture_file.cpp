#include "picture_file.h"

#include <QFile>
#include <QFileInfo>
#include <QImageReader>
#include <QList>

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
    QFile file(path);
    if (!QFileInfo(path).isFile() || !file.open(QIODevice::ReadOnly | QIODevice::Unbuffered)) {
        return false;
    }
    bytes = file.read(limit + 1);
    return bytes.size() <= limit && file.error() == QFile::NoError;
}

} // namespace velarion
