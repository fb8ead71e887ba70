#include "service_keeper.h"

#include "device_client.h"
#include "device_link.h"
#include "device_protocol.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>
#include <QStandardPaths>

#include <csignal>
#include <cstdlib>
#include <sys/prctl.h>

namespace velarion {

namespace {

constexpr int LONGEST_END = 300; // ms that the own service may take to end

/** A command that makes the service misbehave; those with a value name what it is. */
struct fault_command {
    const char* name;
    int kind;
    const char* value_name;
    int least;
    int most;
};

constexpr fault_command FAULTS[] = {{"delay", FAULT_DELAY, "MS", 1, LONGEST_DELAY},
                                    {"refuse", FAULT_FAIL, "RESULT", 1, 1000},
                                    {"drop", FAULT_DROP, nullptr, 0, 0},
                                    {"crash", FAULT_CRASH_NOW, nullptr, 0, 0},
                                    {"normal", FAULT_NONE, nullptr, 0, 0}};

QString find_program() {
    const QString name = QStringLiteral("panel_device_service");
    const QString beside = QDir(QCoreApplication::applicationDirPath()).filePath(name);
    return QFileInfo(beside).isExecutable() ? beside : QStandardPaths::findExecutable(name);
}

/** @return what is wrong with the words, or an empty text */
QString read_value(const fault_command& fault, const QStringList& words, int& value) {
    const bool has_value = fault.value_name;
    bool is_number = !has_value;
    if (words.size() == (has_value ? 2 : 1) && has_value) {
        value = words[1].toInt(&is_number);
    }
    if (words.size() == (has_value ? 2 : 1) && is_number && value >= fault.least && value <= fault.most) {
        return {};
    }
    return has_value ? QStringLiteral("usage: %1 %2, from %3 to %4")
                           .arg(QLatin1String(fault.name), QLatin1String(fault.value_name))
                           .arg(fault.least)
                           .arg(fault.most)
                     : QStringLiteral("usage: %1").arg(QLatin1String(fault.name));
}

} // namespace

void bound_process::setupChildProcess() {
    ::prctl(PR_SET_PDEATHSIG, SIGKILL); // which ends a service that is paused, too
    if (::getppid() != parent_) {
        ::_exit(EXIT_FAILURE);
    }
}

service_keeper::service_keeper(device_link& link)
    : link_(link) {
    own_.setProcessChannelMode(QProcess::ForwardedChannels);
    connect(&own_, QOverload<int, QProcess::ExitStatus>::of(&QProcess::finished), this,
            &service_keeper::take_end);
    connect(&link_.watch(), &service_watch::changed, this, &service_keeper::go_on);
}

service_keeper::~service_keeper() {
    own_.disconnect();
    if (is_own()) {
        static_cast<void>(send_signals({SIGTERM, SIGCONT}));
        if (!own_.waitForFinished(LONGEST_END)) {
            own_.kill();
            own_.waitForFinished();
        }
    }
}

void service_keeper::begin(service_source source) {
    const bool is_wanted = source == service_source::OWN ||
                           (source == service_source::AUTO && look_at_service().code == PLATFORM_NOT_READY);
    const QString fault = is_wanted ? start() : QString();
    link_.start();
    if (!fault.isEmpty()) {
        Q_EMIT failed(fault);
    }
}

QString service_keeper::run(const QStringList& words) {
    const QString name = words.value(0);
    for (const fault_command& fault : FAULTS) {
        if (name == QLatin1String(fault.name)) {
            int value = 0;
            const QString wrong = read_value(fault, words, value);
            if (wrong.isEmpty()) {
                link_.start();
                is_leaving_ = is_leaving_ || fault.kind == FAULT_CRASH_NOW;
                link_.set_fault(fault.kind, value);
            }
            return wrong;
        }
    }
    link_.start();
    if (words.size() != 1) {
        return usage();
    }
    return name == QLatin1String("start")      ? start()
           : name == QLatin1String("stop")     ? stop({SIGCONT, SIGTERM})
           : name == QLatin1String("kill")     ? stop({SIGKILL})
           : name == QLatin1String("pause")    ? send_signals({SIGSTOP})
           : name == QLatin1String("continue") ? send_signals({SIGCONT})
           : name == QLatin1String("restart")  ? restart()
                                               : usage();
}

QString service_keeper::usage() {
    return QStringLiteral("usage: service start, stop, kill, pause, continue, restart, delay MS, "
                          "refuse RESULT, drop, crash or normal");
}

QString service_keeper::start() {
    const QString program = find_program();
    if (program.isEmpty()) {
        return QStringLiteral("panel_device_service is neither beside this program nor in PATH");
    }
    if (is_own()) {
        restarts_ = is_leaving_;
        return is_leaving_ ? QString() : QStringLiteral("the device service runs already");
    }
    has_served_ = false;
    is_leaving_ = false;
    own_.start(program, {QStringLiteral("--log-level"), QStringLiteral("warning")}, QIODevice::NotOpen);
    return {};
}

/** A service that takes no more connections cannot be told from outside: it is the one that was known last.
 */
pid_t service_keeper::find_process() const {
    if (is_own()) {
        return static_cast<pid_t>(own_.processId());
    }
    const service_sight sight = look_at_service();
    return sight.process == 0 && sight.code == PLATFORM_WOULD_BLOCK ? link_.watch().process() : sight.process;
}

QString service_keeper::stop(std::initializer_list<int> signals) {
    restarts_ = false;
    is_leaving_ = true;
    return send_signals(signals);
}

QString service_keeper::send_signals(std::initializer_list<int> signals) {
    const pid_t process = find_process();
    for (const int signal : signals) {
        if (process <= 0 || ::kill(process, signal) != 0) {
            return QStringLiteral("the device service is not running");
        }
    }
    return {};
}

/** A service that another program started ends first; go_on() tells when it did. */
QString service_keeper::restart() {
    restarts_ = stop({SIGCONT, SIGTERM}).isEmpty();
    return restarts_ ? QString() : start();
}

void service_keeper::go_on() {
    const bool is_absent = link_.watch().condition() == service_condition::ABSENT;
    has_served_ = has_served_ || link_.watch().is_there();
    is_leaving_ = is_leaving_ || (has_served_ && is_absent);
    if (restarts_ && !is_own() && is_absent) {
        restarts_ = false;
        start();
    }
}

void service_keeper::take_end(int exit_code, QProcess::ExitStatus status) {
    if (restarts_) {
        restarts_ = false;
        start();
    } else if (status == QProcess::NormalExit && exit_code != 0) {
        Q_EMIT failed(
            QStringLiteral("the device service ended with %1; does another one run?").arg(exit_code));
    }
}

bool read_service_source(const QString& word, service_source& source) {
    const QStringList words = {QStringLiteral("auto"), QStringLiteral("none"), QStringLiteral("own")};
    const int place = words.indexOf(word);
    source = place < 0 ? source : static_cast<service_source>(place);
    return place >= 0;
}

} // namespace velarion
