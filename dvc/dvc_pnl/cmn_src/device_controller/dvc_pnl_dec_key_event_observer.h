#ifndef DVC_PNL_DEC_KEY_EVENT_OBSERVER_H
#define DVC_PNL_DEC_KEY_EVENT_OBSERVER_H

#include "dvc_pnl_export.h"

namespace velarion {

/**
 * What is told when a hard key of the operation panel is pressed or released.
 *
 * An observer is registered with dvc_pnl_dec_facade::dvc_pnl_dec_add_key_observer() and belongs to
 * its creator. The library never calls it: whoever receives the service's notifications does, on a
 * thread of its choosing, and has to stop before the observer is destroyed.
 */
class DVC_PNL_EXPORT dvc_pnl_dec_key_event_observer {
public:
    dvc_pnl_dec_key_event_observer();
    virtual ~dvc_pnl_dec_key_event_observer();
    /** A copy is an observer of its own, not registered. */
    dvc_pnl_dec_key_event_observer(const dvc_pnl_dec_key_event_observer&) = default;
    dvc_pnl_dec_key_event_observer& operator=(const dvc_pnl_dec_key_event_observer&) = default;

    /** @param key_id  the notification's id, dvc_pnl_dec_serialize::decoded_id */
    virtual void dvc_pnl_dec_key_pressed(int key_id) = 0;
    /** @param key_id  the notification's id, dvc_pnl_dec_serialize::decoded_id */
    virtual void dvc_pnl_dec_key_released(int key_id) = 0;
};

} // namespace velarion

#endif
