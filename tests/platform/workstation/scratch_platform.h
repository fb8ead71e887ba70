#ifndef SCRATCH_PLATFORM_H
#define SCRATCH_PLATFORM_H

#include "scratch_folder.h"

#include <functional>
#include <gtest/gtest.h>
#include <string>
#include <sys/types.h>
#include <vector>

/** Gives each test an empty platform folder of its own. */
class scratch_platform : public testing::Test {
protected:
    scratch_platform();

    /** @return path of something beside the platform folder, in the same scratch folder */
    std::string beside(const std::string& name) const { return scratch_.path(name); }
    std::string folder() const { return beside("platform"); }

private:
    const scratch_folder scratch_;
};

/** Starts a process that ends with 0 when @p work returns true. */
pid_t start_process(const std::function<bool()>& work);
/** @return the exit status, or minus the signal that ended the process */
int wait_for(pid_t process);
int run_in_process(const std::function<bool()>& work);

/** Runs @p work in four threads at once, with the numbers 0 to 3. */
void run_in_threads(const std::function<void(int number)>& work);

#endif
