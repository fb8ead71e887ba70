#ifndef OUTPUT_FILE_H
#define OUTPUT_FILE_H

#include <QByteArray>
#include <QString>

namespace velarion {

/**
 * Writes a file whole or not at all. A pipe or device that is there is written to, not replaced.
 * @return false after a fault, which is reported
 */
bool write_output_file(const QString& path, const QByteArray& contents);

} // namespace velarion

#endif
