#include "start_phases.h"

#include <QFile>

#include <ctime>
#include <unistd.h>
#include <vector>

namespace velarion {

namespace {

constexpr int START_FIELD = 22; // of /proc/self/stat: ticks from the start of the system

struct phase {
    const char* name;
    double end; ///< ms since the process was started
};

std::vector<phase>& phases() {
    static std::vector<phase> all;
    return all;
}

double now() {
    timespec time = {};
    clock_gettime(CLOCK_BOOTTIME, &time);
    return static_cast<double>(time.tv_sec) * 1e3 + static_cast<double>(time.tv_nsec) / 1e6;
}

/** As exact as the system's ticks are, a hundredth of a second. */
double process_start() {
    QFile stat(QStringLiteral("/proc/self/stat"));
    if (!stat.open(QIODevice::ReadOnly)) {
        return now();
    }
    const QByteArray line = stat.readAll();
    const QList<QByteArray> fields = line.mid(line.lastIndexOf(')') + 2).split(' '); // from the third one on
    return fields.value(START_FIELD - 3).toDouble() * 1e3 / static_cast<double>(sysconf(_SC_CLK_TCK));
}

} // namespace

void end_start_phase(const char* name) {
    phases().push_back({name, now() - process_start()});
}

QString start_phases_report() {
    QString report;
    double begin = 0;
    for (const phase& one : phases()) {
        report += QString::asprintf("%-20s %8.1f ms\n", one.name, one.end - begin);
        begin = one.end;
    }
    return report + QString::asprintf("%-20s %8.1f ms\n", "process to frame", begin);
}

} // namespace velarion
