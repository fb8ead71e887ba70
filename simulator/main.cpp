#include "device_tree.h"
#include "headless_run.h"
#include "simulator_options.h"
#include "start_phases.h"
#include "window_run.h"
#include "window_style.h"

#include <QApplication>

#include <algorithm>
#include <cstring>

namespace velarion {

namespace {

/** Start-up of the toolkit tells of session services that the panel does not need. */
void drop_start_up_remark(QtMsgType type, const QMessageLogContext&, const QString& text) {
    if (type == QtCriticalMsg || type == QtFatalMsg) {
        report_simulator_fault(text);
    }
}

/** @return whether there is a display for a window; without one the application is made all the same */
bool choose_platform(int argc, char** argv) {
    const auto is_platform = [](const char* word) {
        return std::strncmp(word + std::strspn(word, "-"), "platform", std::strlen("platform")) == 0;
    };
    const bool has_display =
        !qEnvironmentVariableIsEmpty("DISPLAY") || !qEnvironmentVariableIsEmpty("WAYLAND_DISPLAY") ||
        !qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM") || std::any_of(argv + 1, argv + argc, is_platform);
    if (!has_display || (asks_for_no_window(argc, argv) && qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))) {
        qputenv("QT_QPA_PLATFORM", "offscreen");
    }
    return has_display;
}

} // namespace

} // namespace velarion

int main(int argc, char** argv) {
    using namespace velarion;
    end_start_phase("to main");
    const bool has_display = choose_platform(argc, argv);
    qInstallMessageHandler(drop_start_up_remark);
    const QApplication application(argc, argv);
    qInstallMessageHandler(nullptr);
    set_window_style();
    QCoreApplication::setApplicationName(QStringLiteral("panel_simulator"));
    simulator_options options;
    int exit_code = SIMULATOR_GOOD;
    if (!read_simulator_options(QCoreApplication::arguments(), options, exit_code)) {
        return exit_code;
    }
    if (!options.is_headless() && !has_display) {
        report_simulator_fault(
            QStringLiteral("there is no display for a window; see --help for what goes without "
                           "one, or add -platform vnc and look at it with a VNC viewer"));
        return SIMULATOR_FAILED;
    }
    if (!is_device_tree_in_place()) {
        report_simulator_fault(missing_device_tree_text());
    }
    return options.is_headless() ? run_headless(options) : run_window(options);
}
