#ifndef PLATFORM_FOLDER_H
#define PLATFORM_FOLDER_H

#include "panel_platform_export.h"
#include "platform_codes.h"

#include <string>

namespace velarion {

/**
 * Tells where all stores of the workstation are: $PANEL_PLATFORM_DIR, else
 * $XDG_STATE_HOME/panel_platform (when absolute), else $HOME/.local/state/panel_platform.
 * An empty variable counts as missing. Any thread, as long as none changes the environment.
 *
 * @return the folder, which need not exist; empty when none of the variables is set
 */
PANEL_PLATFORM_EXPORT std::string platform_folder();

/**
 * Creates the folder, and whatever is missing above it, for the owner alone (mode 0700).
 * @return PLATFORM_OK also when it exists; PLATFORM_NO_FOLDER, or why it cannot be created
 */
platform_code make_platform_folder();

/**
 * Waits until what was made, renamed or removed in a folder is on the storage device.
 * @param folder  the folder, open; a file system that has no such step counts as done
 */
platform_code sync_folder(int folder);

} // namespace velarion

#endif
