#ifndef PICTURE_FILE_H
#define PICTURE_FILE_H

#include <QByteArray>
#include <QString>

namespace velarion {

/** What the toolkit's image reader would open. */
struct picture_file {
    QString path;            ///< completed with the extension that the toolkit adds; empty when there is none
    bool is_special = false; ///< a device, a pipe, a folder: not to be opened, path is empty
};

/** @param path  as it is given to the image reader */
picture_file find_picture_file(const QString& path);

/**
 * Reads an ordinary file.
 *
 * @param limit  most bytes that it may have
 * @param bytes  receives them; undefined on failure
 * @return whether it was read whole
 */
[[nodiscard]] bool read_file(const QString& path, qint64 limit, QByteArray& bytes);

} // namespace velarion

#endif
