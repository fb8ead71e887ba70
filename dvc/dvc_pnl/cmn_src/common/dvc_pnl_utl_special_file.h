#ifndef DVC_PNL_UTL_SPECIAL_FILE_H
#define DVC_PNL_UTL_SPECIAL_FILE_H

#include <QFile>
#include <QString>

#include <sys/stat.h>

namespace velarion {

/**
 * Tells devices, pipes and sockets, which would keep a reader waiting or never end. Asks without opening.
 *
 * @param path  as the toolkit's files take it; links are followed
 * @return false also for a folder and for what is not there
 */
inline bool is_special_file(const QString& path) {
    struct stat status;
    return stat(QFile::encodeName(path).constData(), &status) == 0 && !S_ISREG(status.st_mode) &&
           !S_ISDIR(status.st_mode);
}

} // namespace velarion

#endif
