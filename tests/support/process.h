#ifndef PROCESS_H
#define PROCESS_H

#include <map>
#include <string>
#include <vector>

/** What a process left behind. */
struct process_result {
    int exit_code; ///< minus the signal when one ended it
    std::string output;
    std::string errors;
};

/**
 * Runs a program, found as a shell finds it, and waits for its end.
 *
 * @param environment  variables that it gets beside those of the test
 */
process_result run_process(const std::vector<std::string>& command,
                           const std::map<std::string, std::string>& environment = {});

#endif
