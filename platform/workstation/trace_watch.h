#ifndef TRACE_WATCH_H
#define TRACE_WATCH_H

#include "panel_platform_export.h"

#include <string>

namespace velarion {

/** What gets the trace records of this process, on the thread that traces. */
class PANEL_PLATFORM_EXPORT trace_watch {
public:
    virtual ~trace_watch();
    /**
     * @param record  the line as it would be printed, without its end
     * @return whether it need not be printed on standard error; a trace file gets it in any case
     */
    virtual bool take_trace(const std::string& record) = 0;
};

/**
 * @param watch  null: nobody. When this returns the former one is not called any more; so not from a watch
 */
PANEL_PLATFORM_EXPORT void set_trace_watch(trace_watch* watch);

} // namespace velarion

#endif
