#ifndef PANEL_SCREEN_H
#define PANEL_SCREEN_H

#include "message_text.h"

#include <QWidget>

namespace velarion {

class machine_state;
class panel_frame;
class panel_hardware;
class panel_languages;

/** What screens work with; outlives them. */
struct panel_services {
    machine_state& machine;
    panel_hardware& hardware;
    panel_languages& languages;
};

struct panel_context {
    panel_services services;
    panel_frame& frame;
};

/** One screen of the panel: what stands between title and navigation. Made anew each time it is opened. */
class panel_screen : public QWidget {
public:
    explicit panel_screen(const panel_context& context)
        : context_(context) {}

    /** What stands in the title bar. */
    virtual message_text title() const = 0;

    /** A hard key went down. @return whether the screen had a use for it */
    virtual bool take_key(int key) {
        Q_UNUSED(key)
        return false;
    }

protected:
    machine_state& machine() const { return context_.services.machine; }
    panel_hardware& hardware() const { return context_.services.hardware; }
    panel_languages& languages() const { return context_.services.languages; }
    panel_frame& frame() const { return context_.frame; }

private:
    panel_context context_;
};

/** A screen by its name. */
struct screen_entry {
    const char* name;
    const char* description; ///< for the lists of the simulator
    panel_screen* (*make)(const panel_context& context);
};

} // namespace velarion

#endif
