#include "panel_view.h"
#include "simulation.h"

#include <QApplication>
#include <QCommandLineParser>

#include <cstdio>

namespace velarion {

namespace {

int run(const QCommandLineParser& options) {
    simulation panel;
    panel_view view(panel.panel());
    if (options.isSet(QStringLiteral("screenshot"))) {
        const QString file = options.value(QStringLiteral("screenshot"));
        if (!view.picture().save(file)) {
            std::fprintf(stderr, "panel_simulator: %s cannot be written\n", qPrintable(file));
            return 3;
        }
        return 0;
    }
    view.show();
    return QApplication::exec();
}

} // namespace

} // namespace velarion

int main(int argc, char** argv) {
    const QApplication application(argc, argv);
    QCommandLineParser options;
    options.addHelpOption();
    options.addOption({QStringLiteral("screenshot"), QStringLiteral("Writes the panel as a picture."),
                       QStringLiteral("FILE")});
    options.process(application);
    return velarion::run(options);
}
