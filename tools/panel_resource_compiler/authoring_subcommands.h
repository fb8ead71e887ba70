#ifndef AUTHORING_SUBCOMMANDS_H
#define AUTHORING_SUBCOMMANDS_H

#include "subcommand.h"

namespace velarion {} // namespace velarion

#endif
