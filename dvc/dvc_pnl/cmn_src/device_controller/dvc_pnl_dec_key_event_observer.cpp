#include "dvc_pnl_dec_key_event_observer.h"

namespace velarion {

dvc_pnl_dec_key_event_observer::dvc_pnl_dec_key_event_observer() = default;

dvc_pnl_dec_key_event_observer::~dvc_pnl_dec_key_event_observer() = default;

} // namespace velarion
