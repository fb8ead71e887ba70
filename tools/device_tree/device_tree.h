#ifndef DEVICE_TREE_H
#define DEVICE_TREE_H

#include <QString>

namespace velarion {

/** Whether the device's folders are in place; without them the library has no packs and no data files. */
bool is_device_tree_in_place();

/** What to tell a user when they are not. */
QString missing_device_tree_text();

/**
 * Keeps what the commands of the font directory say ("mkdir: cannot create ...") from standard error for
 * its lifetime; every other line written there comes out when it ends.
 */
class font_command_silence {
public:
    font_command_silence();
    ~font_command_silence();
    font_command_silence(const font_command_silence&) = delete;
    font_command_silence& operator=(const font_command_silence&) = delete;

private:
    int saved_error_;
    int captured_error_;
};

} // namespace velarion

#endif
