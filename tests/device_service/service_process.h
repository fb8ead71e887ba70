#ifndef SERVICE_PROCESS_H
#define SERVICE_PROCESS_H

#include "device_message.h"
#include "scratch_folder.h"

#include <cstdint>
#include <cstdlib>
#include <filesystem>
#include <gtest/gtest.h>
#include <sys/types.h>
#include <vector>

/** A real panel_device_service. The constructor returns when it is ready, or has ended without getting so. */
class service_process {
public:
    explicit service_process(const char* log_level = "error");
    /** Kills it if it still runs. */
    ~service_process();
    service_process(const service_process&) = delete;
    service_process& operator=(const service_process&) = delete;

    bool is_ready() const { return is_ready_; }

    /** Sends a signal and waits for the end. @return exit status, or minus the signal that ended it */
    int end_by(int signal);
    /** Waits for the end. @return as end_by() */
    int wait();

private:
    pid_t process_ = 0;
    bool is_ready_ = false;
};

/** Sends the service a request of this process. @return the reply; its result is -1 when there is none */
velarion::device_message ask_service(std::int32_t func_id, const std::vector<std::int32_t>& values);

/** Gives each test an empty platform folder. Its place stays: threads of the test before may still read it.
 */
class scratch_service : public testing::Test {
protected:
    scratch_service() { std::filesystem::remove_all(scratch_.path("platform")); }

    const scratch_folder& scratch_ = folder();

private:
    static const scratch_folder& folder() {
        static const scratch_folder made;
        static const int is_set = ::setenv("PANEL_PLATFORM_DIR", made.path("platform").c_str(), 1);
        EXPECT_EQ(is_set, 0);
        return made;
    }
};

#endif
