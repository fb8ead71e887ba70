#include "offscreen_application.h"

#include <QGuiApplication>

#include <cstdio>

namespace velarion {

namespace {

int argument_count = 1;
char program_name[] = "panel_resource_compiler";
char* program_arguments[] = {program_name, nullptr};

/** What the toolkit says of a picture is found and told by the checks, with its place. */
void leave_out_warnings(QtMsgType type, const QMessageLogContext&, const QString& text) {
    if (type == QtCriticalMsg || type == QtFatalMsg) {
        std::fprintf(stderr, "%s\n", qPrintable(text));
    }
}

} // namespace

offscreen_application::offscreen_application() {
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) {
        qputenv("QT_QPA_PLATFORM", "offscreen");
    }
    qInstallMessageHandler(leave_out_warnings);
    application_ = std::make_unique<QGuiApplication>(argument_count, program_arguments);
}

offscreen_application::~offscreen_application() {
    application_.reset();
    qInstallMessageHandler(nullptr);
}

} // namespace velarion
