#ifndef JOB_TEXTS_H
#define JOB_TEXTS_H

#include "machine_job.h"
#include "message_text.h"

namespace velarion {

message_text name_of(job_kind kind);
const char* picture_of(job_kind kind);
/** @return the picture id of what is seen of a job at work */
QString movie_of(const machine_job& job);

/** What tells a job from others: its destination, or its kind. */
message_text short_text_of(const machine_job& job);
message_text state_of(const machine_job& job);
/** What is left to do. */
message_text detail_of(const machine_job& job);

} // namespace velarion

#endif
