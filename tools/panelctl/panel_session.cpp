#include "panel_session.h"

#include "command_line.h"
#include "device_tree.h"
#include "dvc_pnl_rmg_language_resource.h"

#include <QDir>
#include <QFileInfo>

namespace velarion {

namespace {

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
        report_fault(missing_device_tree_text());
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
