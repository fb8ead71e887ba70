#include "headless_run.h"
#include "panel_view.h"
#include "simulation.h"
#include "simulator_options.h"

#include <QApplication>

namespace velarion {

namespace {

/** Start-up of the toolkit tells of session services that the panel does not need. */
void drop_start_up_remark(QtMsgType type, const QMessageLogContext&, const QString& text) {
    if (type == QtCriticalMsg || type == QtFatalMsg) {
        report_simulator_fault(text);
    }
}

/** Without a window there is no need of a display. */
void choose_platform(int argc, char** argv) {
    if (asks_for_no_window(argc, argv) && qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) {
        qputenv("QT_QPA_PLATFORM", "offscreen");
    }
}

int run_window() {
    simulation panel;
    panel_view view(panel.panel());
    view.show();
    return QApplication::exec();
}

} // namespace

} // namespace velarion

int main(int argc, char** argv) {
    using namespace velarion;
    choose_platform(argc, argv);
    qInstallMessageHandler(drop_start_up_remark);
    const QApplication application(argc, argv);
    qInstallMessageHandler(nullptr);
    QCoreApplication::setApplicationName(QStringLiteral("panel_simulator"));
    simulator_options options;
    int exit_code = SIMULATOR_GOOD;
    if (!read_simulator_options(QCoreApplication::arguments(), options, exit_code)) {
        return exit_code;
    }
    return options.is_headless() ? run_headless(options) : run_window();
}
