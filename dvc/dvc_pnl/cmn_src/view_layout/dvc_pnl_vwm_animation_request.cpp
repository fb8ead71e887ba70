#include "dvc_pnl_vwm_animation_request.h"

namespace velarion {

dvc_pnl_vwm_animation_request::dvc_pnl_vwm_animation_request()
    : type_(DVC_PNL_VWM_ANIMATION_TYPE_DEFAULT)
    , direction_(DVC_PNL_VWM_ANIMATION_DIRECTION_DEFAULT) {}

dvc_pnl_vwm_animation_request::dvc_pnl_vwm_animation_request(DVC_PNL_VWM_ANIMATION_TYPE type,
                                                             DVC_PNL_VWM_ANIMATION_DIRECTION direction)
    : type_(type)
    , direction_(direction) {}

void dvc_pnl_vwm_animation_request::dvc_pnl_vwm_set_type(DVC_PNL_VWM_ANIMATION_TYPE type) {
    type_ = type;
}

DVC_PNL_VWM_ANIMATION_TYPE dvc_pnl_vwm_animation_request::dvc_pnl_vwm_type() {
    return type_;
}

void dvc_pnl_vwm_animation_request::dvc_pnl_vwm_set_direction(DVC_PNL_VWM_ANIMATION_DIRECTION direction) {
    direction_ = direction;
}

DVC_PNL_VWM_ANIMATION_DIRECTION dvc_pnl_vwm_animation_request::dvc_pnl_vwm_direction() {
    return direction_;
}

} // namespace velarion
