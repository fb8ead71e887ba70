#include "dvc_pnl_dec_communication.h"
#include "file_descriptor.h"
#include "platform_codes.h"
#include "platform_folder.h"
#include "service_log.h"
#include "service_loop.h"

#include <cerrno>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <fcntl.h>
#include <getopt.h>
#include <sys/signalfd.h>
#include <unistd.h>

namespace {

using namespace velarion;

enum exit_status : int { EXIT_DONE = 0, EXIT_USAGE = 2, EXIT_FAULT = 3 };

constexpr char HELP[] =
    "panel_device_service - the hardware of the operation panel, for the processes of one user\n"
    "\n"
    "Usage: panel_device_service [OPTION...]\n"
    "\n"
    "Keeps the LEDs and the key observers and answers requests under the name DVO_DVC_PNL_SRV, in the\n"
    "foreground, until SIGTERM or SIGINT. \"panelctl led\", \"key\", \"monitor\" and \"service\" drive it.\n"
    "\n"
    "  --log-level LEVEL  error, warning, info (default) or debug; the log goes to standard error\n"
    "  --ready-fd NUMBER  writes a line to this open descriptor, and closes it, once the service is ready\n"
    "  --help, --version\n"
    "\n"
    "Environment: PANEL_PLATFORM_DIR, folder of the platform services; the service's socket is in run/\n"
    "below it. Without it $XDG_STATE_HOME/panel_platform, else $HOME/.local/state/panel_platform.\n"
    "\n"
    "Exit codes: 0 ended by a signal, 2 usage, 3 the name cannot be served, or not any more.\n";

struct service_options {
    int ready_descriptor = -1;
};

int usage_fault(const char* fault, const char* value) {
    std::fprintf(stderr, "panel_device_service: %s%s; see panel_device_service --help\n", fault, value);
    return EXIT_USAGE;
}

bool read_descriptor(const char* text, int& descriptor) {
    char* end = nullptr;
    errno = 0;
    const long number = std::strtol(text, &end, 10);
    descriptor = static_cast<int>(number);
    return errno == 0 && *end == '\0' && end != text && number >= 0 && number < 65536 &&
           ::fcntl(descriptor, F_GETFD) >= 0;
}

/** @return whether to go on; otherwise @p exit_code is what to end with */
bool read_option(int option, const char* value, service_options& options, int& exit_code) {
    service_log_level level = SERVICE_LOG_INFO;
    switch (option) {
    case 'l':
        if (!find_log_level(value, level)) {
            exit_code = usage_fault("unknown log level ", value);
            return false;
        }
        set_log_level(level);
        return true;
    case 'r':
        if (!read_descriptor(value, options.ready_descriptor)) {
            exit_code = usage_fault("--ready-fd takes the number of an open descriptor, not ", value);
            return false;
        }
        return true;
    case 'h':
        std::fputs(HELP, stdout);
        break;
    case 'v':
        std::puts("panel_device_service " PANEL_VIEW_VERSION);
        break;
    default:
        exit_code = usage_fault("unknown option, or a value is missing", "");
        return false;
    }
    exit_code = EXIT_DONE;
    return false;
}

bool read_options(int argc, char** argv, service_options& options, int& exit_code) {
    const option known[] = {{"log-level", required_argument, nullptr, 'l'},
                            {"ready-fd", required_argument, nullptr, 'r'},
                            {"help", no_argument, nullptr, 'h'},
                            {"version", no_argument, nullptr, 'v'},
                            {nullptr, 0, nullptr, 0}};
    opterr = 0;
    for (int found = 0; (found = ::getopt_long(argc, argv, "h", known, nullptr)) != -1;) {
        if (!read_option(found, optarg, options, exit_code)) {
            return false;
        }
    }
    if (optind < argc) {
        exit_code = usage_fault("unexpected word ", argv[optind]);
        return false;
    }
    return true;
}

/** A closed standard descriptor would become that of a socket or of a file, and the log would go there. */
void open_standard_descriptors() {
    int opened = 0;
    do {
        opened = ::open("/dev/null", O_RDWR);
    } while (opened >= 0 && opened <= STDERR_FILENO);
    const velarion::file_descriptor surplus(opened);
}

velarion::file_descriptor take_signals() {
    std::signal(SIGPIPE, SIG_IGN); // a log that nobody reads does not end the service
    sigset_t ending;
    sigemptyset(&ending);
    sigaddset(&ending, SIGTERM);
    sigaddset(&ending, SIGINT);
    sigprocmask(SIG_BLOCK, &ending, nullptr);
    return velarion::file_descriptor(::signalfd(-1, &ending, SFD_CLOEXEC | SFD_NONBLOCK));
}

int report_listen_fault(platform_code code) {
    const std::string folder = velarion::platform_folder();
    switch (code) {
    case velarion::PLATFORM_ALREADY_SERVED:
        write_log(SERVICE_LOG_ERROR, "another panel_device_service runs on %s", folder.c_str());
        break;
    case velarion::PLATFORM_NO_FOLDER:
        write_log(SERVICE_LOG_ERROR, "no folder: set PANEL_PLATFORM_DIR, XDG_STATE_HOME or HOME");
        break;
    case velarion::PLATFORM_ACCESS_DENIED:
        write_log(SERVICE_LOG_ERROR,
                  "%s/run cannot be used: it must be writable, belong to this user and have mode 0700",
                  folder.c_str());
        break;
    default:
        write_log(SERVICE_LOG_ERROR, "no socket can be made in %s/run (platform code %d)", folder.c_str(),
                  code);
    }
    return EXIT_FAULT;
}

void tell_ready(int descriptor) {
    if (descriptor >= 0) {
        const velarion::file_descriptor ready(descriptor);
        if (::write(ready.get(), "\n", 1) != 1) {
            write_log(SERVICE_LOG_WARNING, "--ready-fd %d cannot be written", descriptor);
        }
    }
}

} // namespace

int main(int argc, char** argv) {
    service_options options;
    int exit_code = EXIT_DONE;
    if (!read_options(argc, argv, options, exit_code)) {
        return exit_code;
    }
    open_standard_descriptors();
    const velarion::file_descriptor signals = take_signals();
    if (signals.get() < 0) {
        write_log(SERVICE_LOG_ERROR, "no descriptor for signals (error %d)", errno);
        return EXIT_FAULT;
    }
    service_loop loop;
    const platform_code code = loop.listen(velarion::DVC_PNL_DEC_SERVICE_NAME);
    if (code != velarion::PLATFORM_OK) {
        return report_listen_fault(code);
    }
    write_log(SERVICE_LOG_INFO, "ready as %s in %s/run", velarion::DVC_PNL_DEC_SERVICE_NAME,
              velarion::platform_folder().c_str());
    tell_ready(options.ready_descriptor);
    if (!loop.run(signals.get())) {
        return EXIT_FAULT;
    }
    write_what_was_left_out(true);
    write_log(SERVICE_LOG_INFO, "ended");
    return EXIT_DONE;
}
