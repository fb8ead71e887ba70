#ifndef PANEL_SESSION_H
#define PANEL_SESSION_H

#include <QString>

namespace velarion {

class dvc_pnl_rmg_language_resource;

/**
 * Says on standard error when the device's folders are not in place: the library then has no packs
 * and no data files.
 */
void report_missing_device_tree();

/** The library's language resource for one run of a command; says what it left outside a device tree. */
class panel_session {
public:
    panel_session();
    ~panel_session();
    panel_session(const panel_session&) = delete;
    panel_session& operator=(const panel_session&) = delete;

    dvc_pnl_rmg_language_resource& language() { return *language_; }

private:
    dvc_pnl_rmg_language_resource* language_;
};

/** "left to right" or "right to left" for a layout direction value. */
QString describe_direction(int direction);

} // namespace velarion

#endif
