#include "device_tree.h"

#include "dvc_pnl_rmg_standard_language_attribute_manager.h"

#include <QFile>
#include <QFileInfo>

#include <cstdio>
#include <sys/mman.h>
#include <unistd.h>

namespace velarion {

namespace {

bool is_from_font_command(const QByteArray& line) {
    return line.startsWith("mkdir: ") || line.startsWith("ln: ");
}

} // namespace

bool is_device_tree_in_place() {
    using manager = dvc_pnl_rmg_standard_language_attribute_manager;
    return QFileInfo(QString::fromStdString(manager::BASE_PATH)).isDir();
}

QString missing_device_tree_text() {
    return QStringLiteral(
        "the device tree is not in place, so there are no option language packs and no data "
        "files; run this through scripts/device-shell");
}

font_command_silence::font_command_silence()
    : saved_error_(dup(STDERR_FILENO))
    , captured_error_(memfd_create("standard error", MFD_CLOEXEC)) {
    std::fflush(stderr);
    if (saved_error_ >= 0 && captured_error_ >= 0) {
        dup2(captured_error_, STDERR_FILENO);
    }
}

font_command_silence::~font_command_silence() {
    if (saved_error_ < 0 || captured_error_ < 0) {
        return;
    }
    std::fflush(stderr);
    dup2(saved_error_, STDERR_FILENO);
    close(saved_error_);
    lseek(captured_error_, 0, SEEK_SET);
    QFile captured;
    captured.open(captured_error_, QIODevice::ReadOnly, QFileDevice::AutoCloseHandle);
    for (const QByteArray& line : captured.readAll().split('\n')) {
        if (!line.isEmpty() && !is_from_font_command(line)) {
            std::fprintf(stderr, "%s\n", line.constData());
        }
    }
}

} // namespace velarion
