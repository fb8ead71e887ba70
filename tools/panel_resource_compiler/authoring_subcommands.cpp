#include "authoring_subcommands.h"

namespace velarion {

std::vector<subcommand> authoring_subcommands() {
    return {};
}

} // namespace velarion
