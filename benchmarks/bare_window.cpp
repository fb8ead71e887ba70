/*
 * The start that every program of the toolkit has: an application and an empty window as large as the
 * simulator's. Prints the phases as panel_simulator --timing does.
 */
#include "start_phases.h"

#include <QApplication>
#include <QMainWindow>
#include <QTimer>

#include <cstdio>

namespace {

constexpr int WIDTH = 1280;
constexpr int HEIGHT = 800;

class bare_window : public QMainWindow {
protected:
    bool event(QEvent* event) override {
        const bool is_done = QMainWindow::event(event);
        if (event->type() == QEvent::UpdateRequest && isVisible()) {
            velarion::end_start_phase("first frame");
            std::printf("%s", qPrintable(velarion::start_phases_report()));
            std::fflush(stdout);
            QApplication::quit();
        }
        return is_done;
    }
};

} // namespace

int main(int argc, char** argv) {
    velarion::end_start_phase("to main");
    const QApplication application(argc, argv);
    velarion::end_start_phase("application");
    bare_window window;
    window.resize(WIDTH, HEIGHT);
    velarion::end_start_phase("window");
    window.show();
    return QApplication::exec();
}
