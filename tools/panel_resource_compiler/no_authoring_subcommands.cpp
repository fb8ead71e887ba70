#include "subcommand.h"

namespace velarion {

std::vector<subcommand> authoring_subcommands() {
    return {};
}

} // namespace velarion
