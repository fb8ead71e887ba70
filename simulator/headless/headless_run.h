#ifndef HEADLESS_RUN_H
#define HEADLESS_RUN_H

#include "simulator_options.h"

namespace velarion {

/** Does all that a command line asks for without a window. @return the exit code */
int run_headless(const simulator_options& options);

} // namespace velarion

#endif
