#ifndef TRACE_H
#define TRACE_H

#include "panel_platform_export.h"

extern "C" {

/**
 * Writes one trace record. Any thread.
 *
 * @param module,group,kind  the record's three numbers
 * @param format             printf format, followed by its arguments; line ends at its end are dropped
 * @return 0 on success
 */
PANEL_PLATFORM_EXPORT int emwGENTrcPrintf(int module, int group, int kind, const char* format, ...)
    PANEL_PLATFORM_PRINTF(4, 5);
}

#endif
