#include "machine_state.h"

namespace velarion {

void machine_state::take_key(int) {}

void machine_state::step() {}

} // namespace velarion
