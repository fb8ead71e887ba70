#ifndef START_PHASES_H
#define START_PHASES_H

#include <QString>

namespace velarion {

/** The start of this process in phases, for --timing. GUI thread. */

/** Notes that a phase is over. @param name  a literal */
void end_start_phase(const char* name);

/** @return a line for each phase with its milliseconds, and their sum since the process was started */
QString start_phases_report();

} // namespace velarion

#endif
