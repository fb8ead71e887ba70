#ifndef SERVICE_PROCESS_H
#define SERVICE_PROCESS_H

#include <gtest/gtest.h>
#include <string>
#include <sys/types.h>
#include <vector>

/** A real panel_device_service. The constructor returns when it is ready, or has ended without getting so. */
class service_process {
public:
    explicit service_process(const std::vector<std::string>& options = {});
    /** Kills it if it still runs. */
    ~service_process();
    service_process(const service_process&) = delete;
    service_process& operator=(const service_process&) = delete;

    bool is_ready() const { return is_ready_; }
    pid_t process() const { return process_; }

    /** Sends a signal and waits for the end. @return exit status, or minus the signal that ended it */
    int end_by(int signal);
    /** Waits for the end. @return as end_by() */
    int wait();

private:
    pid_t process_ = 0;
    bool is_ready_ = false;
};

/** Gives each test an empty platform folder of its own. */
class scratch_service : public testing::Test {
protected:
    scratch_service();
    ~scratch_service() override;
    const std::string& folder() const { return folder_; }

private:
    std::string folder_;
};

/** Runs panelctl. @param output  receives its standard output. @return its exit status */
int run_panelctl(const std::string& arguments, std::string& output);

#endif
