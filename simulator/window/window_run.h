#ifndef WINDOW_RUN_H
#define WINDOW_RUN_H

#include "service_keeper.h"

namespace velarion {

struct simulator_options;

/** Shows the panel in a window until it is closed, or the process gets SIGINT or SIGTERM. @return an exit
 * code */
int run_window(const simulator_options& options);

} // namespace velarion

#endif
