#include "window_run.h"

#include "device_link.h"
#include "inspector.h"
#include "main_window.h"
#include "message_log.h"
#include "panel_view.h"
#include "panel_watch.h"
#include "record_tab.h"
#include "simulation.h"
#include "simulator_options.h"
#include "stage_plan.h"
#include "start_phases.h"

#include <QApplication>
#include <QSocketNotifier>

#include <cerrno>
#include <csignal>
#include <cstdio>
#include <memory>
#include <sys/eventfd.h>
#include <unistd.h>

namespace velarion {

namespace {

int end_descriptor = -1;
pid_t own_process = 0;

/** A child that has yet to become another program has this handler too: the signal is for it alone. */
void ask_for_end(int number) {
    if (::getpid() != own_process) {
        ::signal(number, SIG_DFL);
        ::raise(number);
        return;
    }
    const eventfd_t one = 1;
    const int callers_errno = errno;
    static_cast<void>(::write(end_descriptor, &one, sizeof one));
    errno = callers_errno;
}

/** Ends the event loop after SIGINT or SIGTERM, as closing the window does. */
class end_signals {
public:
    end_signals()
        : descriptor_(::eventfd(0, EFD_CLOEXEC | EFD_NONBLOCK))
        , notifier_(descriptor_.get(), QSocketNotifier::Read) {
        end_descriptor = descriptor_.get();
        own_process = ::getpid();
        QObject::connect(&notifier_, &QSocketNotifier::activated, qApp, &QCoreApplication::quit);
        struct sigaction action = {};
        action.sa_handler = ask_for_end;
        action.sa_flags = SA_RESTART;
        ::sigaction(SIGINT, &action, nullptr);
        ::sigaction(SIGTERM, &action, nullptr);
    }
    ~end_signals() {
        ::signal(SIGINT, SIG_DFL);
        ::signal(SIGTERM, SIG_DFL);
    }
    end_signals(const end_signals&) = delete;
    end_signals& operator=(const end_signals&) = delete;

private:
    file_descriptor descriptor_;
    QSocketNotifier notifier_;
};

/** "function parameters (number)": what tells messages apart comes first. */
QString words_of(const message_entry& entry) {
    const int number = entry.function.indexOf(QLatin1String(" ("));
    return number < 0 ? entry.function + QLatin1Char(' ') + entry.parameters
                      : entry.function.left(number) + QLatin1Char(' ') + entry.parameters +
                            entry.function.mid(number);
}

/** Time and what follows the process, of "DATETTIMEZ PROCESS[ID:ID] ...". */
QStringList cells_of_trace(const QString& record) {
    const QString stamp = record.section(QLatin1Char(' '), 0, 0);
    return {stamp.section(QLatin1Char('T'), 1).remove(QLatin1Char('Z')), record.section(QLatin1Char(' '), 2)};
}

/** The inspector, which hears of messages and traces. */
inspector* make_side_bar(const inspector_parts& parts, message_log& messages, trace_log& traces) {
    auto* side_bar = new inspector(parts);
    QObject::connect(&messages, &message_log::added, side_bar, [side_bar](const message_entry& entry) {
        side_bar->messages().add({entry.time.toString(QStringLiteral("hh:mm:ss.zzz")), words_of(entry),
                                  entry.is_notification ? QStringLiteral("told") : entry.result,
                                  entry.is_notification ? QString() : QString::number(entry.ms, 'f', 1)},
                                 !entry.is_good);
    });
    QObject::connect(&traces, &trace_log::added, side_bar,
                     [side_bar](const QString& record) { side_bar->traces().add(cells_of_trace(record)); });
    return side_bar;
}

/** Opens what the command line asks for. @return false after what there is not, which is reported */
bool show_start_view(simulation& panel, const simulator_options& options) {
    stage_plan plan;
    if (!make_stage_plan(options, panel, plan)) {
        return false;
    }
    if (!options.languages.empty()) {
        panel.choose_preferred_language(plan.languages.front());
    }
    const screen_view& view = plan.views.front();
    if (view.prepare && !options.screen.isEmpty()) {
        view.prepare(panel.machine());
    }
    if (!options.screen.isEmpty()) {
        panel.panel().open(QLatin1String(view.screen));
    }
    return true;
}

} // namespace

/** The library's resources come before the first request to the device, and go before the connection. */
int run_window(const simulator_options& options) {
    end_start_phase("application");
    const end_signals signals;
    message_log messages;
    trace_log traces(options.is_verbose);
    device_link link;
    service_keeper service(link);
    simulation panel(&link);
    end_start_phase("panel");
    if (!show_start_view(panel, options)) {
        return SIMULATOR_USAGE;
    }
    std::unique_ptr<panel_watch> watch;
    if (options.watches) {
        watch = std::make_unique<panel_watch>(panel);
    }
    main_window window({panel, link, service, messages, traces});
    inspector* side_bar = make_side_bar(
        {panel, window.view(), link, [&service](const QStringList& words) { return service.run(words); }},
        messages, traces);
    window.set_side_bar(side_bar);
    side_bar->show_overlay(options.has_overlay);
    if (!options.direction.isEmpty()) {
        side_bar->choose_direction(options.direction);
    }
    if (watch) {
        QObject::connect(watch.get(), &panel_watch::reloaded, side_bar,
                         [&window, side_bar](const QString& what) {
                             side_bar->look_again();
                             window.tell(QStringLiteral("Changed %1 are shown").arg(what));
                         });
    }
    QObject::connect(&window, &main_window::first_frame_shown, [&] {
        end_start_phase("first frame");
        if (options.prints_timing) {
            std::printf("%s", qPrintable(start_phases_report()));
            std::fflush(stdout);
        }
        window.pulse().take_longest();
    });
    end_start_phase("window");
    service.begin(options.service.value_or(service_source::AUTO));
    window.show();
    const int result = QApplication::exec();
    if (options.prints_timing) {
        std::printf("%-20s %8d ms\n", "longest pause", window.pulse().take_longest());
    }
    return result;
}

} // namespace velarion
