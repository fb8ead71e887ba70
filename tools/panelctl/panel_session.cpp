#include "panel_session.h"

#include "command_line.h"
#include "dvc_pnl_rmg_language_resource.h"
#include "dvc_pnl_rmg_standard_language_attribute_manager.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <sys/mman.h>
#include <unistd.h>

#include <cstdio>

namespace velarion {

namespace {

bool is_from_font_command(const QByteArray& line) {
    return line.startsWith("mkdir: ") || line.startsWith("ln: ");
}

bool is_device_tree_in_place() {
    using manager = dvc_pnl_rmg_standard_language_attribute_manager;
    return QFileInfo(QString::fromStdString(manager::BASE_PATH)).isDir();
}

/** Without a device tree the library makes its font links in the machine's own /tmp. */
void report_font_links_left() {
    const QDir folder(QStringLiteral("/tmp/fonts"));
    QStringList links;
    for (const QFileInfo& link : folder.entryInfoList(QDir::System | QDir::Files)) {
        if (link.symLinkTarget().startsWith(QLatin1String("/usr/local/vuk_plp/"))) {
            links.append(link.filePath());
        }
    }
    if (!links.isEmpty()) {
        report_fault(QStringLiteral("the library left links on this machine; to remove them: rm %1; rmdir %2")
                         .arg(links.join(QLatin1Char(' ')), folder.path()));
    }
}

} // namespace

void report_missing_device_tree() {
    if (!is_device_tree_in_place()) {
        report_fault(
            QStringLiteral("the device tree is not in place, so there are no option language packs and "
                           "no data files; run this through scripts/device-shell"));
    }
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

panel_session::panel_session() {
    report_missing_device_tree();
    {
        const font_command_silence silence;
        language_ = dvc_pnl_rmg_language_resource::dvc_pnl_rmg_create_instance();
    }
    if (!is_device_tree_in_place()) {
        report_font_links_left();
    }
}

panel_session::~panel_session() {
    dvc_pnl_rmg_language_resource::dvc_pnl_rmg_delete_instance();
}

QString describe_direction(int direction) {
    return direction == 0 ? QStringLiteral("right to left") : QStringLiteral("left to right");
}

} // namespace velarion
