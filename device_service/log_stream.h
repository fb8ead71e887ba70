#ifndef LOG_STREAM_H
#define LOG_STREAM_H

#include "file_descriptor.h"

#include <string>

namespace velarion {

/**
 * Standard error, written without ever waiting for who reads it. The flags of the descriptor, which other
 * processes share, stay as they are.
 */
class log_stream {
public:
    log_stream();

    /** Writes a text of at most PIPE_BUF bytes as a whole. @return false when there was no room for it */
    bool write(const std::string& text) const;

    /** @return whether this is the stream that the journal says it reads */
    bool is_read_by_journal() const { return is_read_by_journal_; }

private:
    enum stream_kind { ANY, SOCKET, OPENED_ANEW, SHARED };

    stream_kind kind_ = ANY;
    file_descriptor opened_;
    bool is_read_by_journal_ = false;
};

} // namespace velarion

#endif
