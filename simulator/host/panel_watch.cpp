#include "panel_watch.h"

#include "dvc_pnl_rmg_image_resource_manager.h"
#include "dvc_pnl_rmg_language_resource.h"

#include <QDir>
#include <QFileInfo>
#include <QSet>

namespace velarion {

namespace {

constexpr int SETTLE_TIME = 200; // ms without a change, so that a build is over when it is shown
constexpr char PACKS[] = "/mnt/optlang";
constexpr char PACK_LIBRARY[] = "panel/liboptlang/libOptLang.so";

QString picture_folder() {
    return QString::fromStdString(dvc_pnl_rmg_image_resource_manager::RESOURCE_DIR);
}

} // namespace

panel_watch::panel_watch(simulation& panel)
    : panel_(panel) {
    settle_.setSingleShot(true);
    settle_.setInterval(SETTLE_TIME);
    connect(&settle_, &QTimer::timeout, this, [this] { reload(); });
    connect(&watcher_, &QFileSystemWatcher::directoryChanged, this,
            [this](const QString& path) { take_change(path); });
    connect(&watcher_, &QFileSystemWatcher::fileChanged, this,
            [this](const QString& path) { take_change(path); });
    watch_files();
}

/** A file that was replaced is no longer watched, and a folder tells nothing of what is written into its
 * files. */
void panel_watch::watch_files() {
    QStringList paths;
    for (const QString& folder :
         {picture_folder(),
          QString::fromStdString(dvc_pnl_rmg_image_resource_manager::RESOURCE_SHEETEXTENSION_DIR)}) {
        paths.append(folder);
        for (const QFileInfo& file : QDir(folder).entryInfoList(QDir::Files)) {
            paths.append(file.filePath());
        }
    }
    paths.append(QLatin1String(PACKS)); // where packs come and go
    for (const QFileInfo& pack :
         QDir(QLatin1String(PACKS)).entryInfoList(QDir::Dirs | QDir::NoDotAndDotDot)) {
        const QDir folder(pack.filePath());
        const QString library = folder.filePath(QLatin1String(PACK_LIBRARY));
        paths.append(
            {folder.path(), folder.filePath(QStringLiteral("panel")), QFileInfo(library).path(), library});
    }
    const QStringList watched = watcher_.files() + watcher_.directories();
    QStringList missing;
    const QSet<QString> known(watched.begin(), watched.end());
    for (const QString& path : paths) {
        if (!known.contains(path) && QFileInfo::exists(path)) {
            missing.append(path);
        }
    }
    if (!missing.isEmpty()) {
        watcher_.addPaths(missing);
    }
}

void panel_watch::take_change(const QString& path) {
    (path.startsWith(QLatin1String(PACKS)) ? have_packs_changed_ : have_pictures_changed_) = true;
    settle_.start();
}

void panel_watch::reload() {
    watch_files();
    if (have_packs_changed_) {
        have_packs_changed_ = false;
        panel_.reload_languages();
        Q_EMIT reloaded(QStringLiteral("packs"));
    }
    if (have_pictures_changed_) {
        have_pictures_changed_ = false;
        panel_.reload_pictures();
        Q_EMIT reloaded(QStringLiteral("pictures"));
    }
}

} // namespace velarion
