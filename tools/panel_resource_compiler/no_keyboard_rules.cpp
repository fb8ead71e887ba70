#include "keyboard_rules.h"

namespace velarion {

void check_keyboards(const std::string&, const std::string&, diagnostics&) {}

} // namespace velarion
