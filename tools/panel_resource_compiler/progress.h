#ifndef PROGRESS_H
#define PROGRESS_H

#include <string>

namespace velarion {

/** Tells on standard error what a command is at: on a line of a terminal, which is cleared at the end. */
class progress {
public:
    /** @param is_wanted  tells it also where standard error is no terminal, then line by line */
    explicit progress(bool is_wanted);
    progress(const progress&) = delete;
    progress& operator=(const progress&) = delete;
    ~progress();

    void tell(const std::string& step);
    /** Clears the line for what else is written there. */
    void clear();

private:
    bool is_terminal_;
    bool is_told_;
};

} // namespace velarion

#endif
