#ifndef PANEL_WATCH_H
#define PANEL_WATCH_H

#include "simulation.h"

#include <QFileSystemWatcher>
#include <QObject>
#include <QTimer>

namespace velarion {

/** Shows changed pictures and rebuilt packs at once: watches the files that the panel is made of. */
class panel_watch : public QObject {
    Q_OBJECT

public:
    /** @param panel  outlives it */
    explicit panel_watch(simulation& panel);

Q_SIGNALS:
    /** @param what  for people: "pictures" or "packs" */
    void reloaded(const QString& what);

private:
    void watch_files();
    void take_change(const QString& path);
    void reload();

    simulation& panel_;
    QFileSystemWatcher watcher_;
    QTimer settle_;
    bool have_pictures_changed_ = false;
    bool have_packs_changed_ = false;
};

} // namespace velarion

#endif
