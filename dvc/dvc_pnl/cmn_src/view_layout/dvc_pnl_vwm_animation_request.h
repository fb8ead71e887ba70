#ifndef DVC_PNL_VWM_ANIMATION_REQUEST_H
#define DVC_PNL_VWM_ANIMATION_REQUEST_H

#include "dvc_pnl_export.h"

#include <cstdint>

namespace velarion {

/** The kind of an animation. Values beyond the default belong to the user interface. */
enum DVC_PNL_VWM_ANIMATION_TYPE : std::int32_t { DVC_PNL_VWM_ANIMATION_TYPE_DEFAULT = 0 };

/** The direction of an animation. Values beyond the default belong to the user interface. */
enum DVC_PNL_VWM_ANIMATION_DIRECTION : std::int32_t { DVC_PNL_VWM_ANIMATION_DIRECTION_DEFAULT = 0 };

/** What the user interface asks of an animation. A value of any thread: a stored number is kept as it is. */
class DVC_PNL_EXPORT dvc_pnl_vwm_animation_request {
public:
    /** The default of both. */
    dvc_pnl_vwm_animation_request();
    dvc_pnl_vwm_animation_request(DVC_PNL_VWM_ANIMATION_TYPE type, DVC_PNL_VWM_ANIMATION_DIRECTION direction);

    void dvc_pnl_vwm_set_type(DVC_PNL_VWM_ANIMATION_TYPE type);
    DVC_PNL_VWM_ANIMATION_TYPE dvc_pnl_vwm_type();
    void dvc_pnl_vwm_set_direction(DVC_PNL_VWM_ANIMATION_DIRECTION direction);
    DVC_PNL_VWM_ANIMATION_DIRECTION dvc_pnl_vwm_direction();

private:
    DVC_PNL_VWM_ANIMATION_TYPE type_;
    DVC_PNL_VWM_ANIMATION_DIRECTION direction_;
};

} // namespace velarion

#endif
