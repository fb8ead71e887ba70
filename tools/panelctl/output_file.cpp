#include "output_file.h"

#include "command_line.h"

#include <QFile>
#include <QFileInfo>
#include <QSaveFile>

namespace velarion {

bool write_output_file(const QString& path, const QByteArray& contents) {
    const QFileInfo place(path);
    QSaveFile replacement(path);
    QFile target(path);
    const bool is_stream = place.exists() && !place.isFile();
    QFileDevice& file = is_stream ? static_cast<QFileDevice&>(target) : replacement;
    if (file.open(QIODevice::WriteOnly) && file.write(contents) == contents.size() &&
        (is_stream ? target.flush() : replacement.commit())) {
        return true;
    }
    report_fault(QStringLiteral("%1 cannot be written: %2").arg(path, file.errorString()));
    return false;
}

} // namespace velarion
