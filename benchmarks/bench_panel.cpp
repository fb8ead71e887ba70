/*
 * What a change of the language costs on a full screen of the panel: every text and font read anew, laid out
 * and painted. The floor has the same widgets twice, once with the texts of each language, and only lays them
 * out and paints them. Runs in the sample device (scripts/device-shell).
 */
#include "measured_cases.h"
#include "panel_element.h"
#include "screen_table.h"
#include "simulation.h"
#include "units.h"

#include <QApplication>
#include <QImage>
#include <QLayout>

#include <array>
#include <cstdio>
#include <memory>
#include <stdexcept>
#include <string>

namespace {

using velarion::add_case;
using velarion::keep;
using velarion::language_choice;
using velarion::panel_frame;
using velarion::simulation;

constexpr char FULL_SCREEN[] = "trays";
constexpr language_choice GERMAN = {49, 0};
constexpr language_choice FRENCH = {33, 0};
constexpr language_choice HEBREW = {999, 972};

/** A panel that shows a screen in the language in force, and keeps its texts when the language changes. */
struct given_panel {
    std::unique_ptr<panel_frame> frame;
    Qt::LayoutDirection direction;
};

void paint(QWidget& panel) {
    QImage image(velarion::PANEL_SIZE, QImage::Format_RGB32);
    panel.render(&image);
    keep(static_cast<std::size_t>(image.pixel(0, 0)));
}

void switch_language(simulation& panel, const language_choice& choice) {
    panel.choose_preferred_language(choice);
    paint(panel.panel());
}

given_panel panel_in(simulation& panel, velarion::panel_hardware& hardware, const language_choice& choice) {
    panel.choose_preferred_language(choice);
    auto frame = std::make_unique<panel_frame>(velarion::panel_services{panel.machine(), hardware, panel},
                                               velarion::all_screens());
    frame->open(QString::fromLatin1(FULL_SCREEN));
    paint(*frame);
    return {std::move(frame), QApplication::layoutDirection()};
}

void lay_out_again(const given_panel& panel) {
    if (QApplication::layoutDirection() != panel.direction) {
        QApplication::setLayoutDirection(panel.direction);
    }
    for (QWidget* widget : panel.frame->findChildren<QWidget*>()) {
        if (dynamic_cast<velarion::panel_element*>(widget)) {
            widget->updateGeometry();
            widget->update();
        }
    }
    paint(*panel.frame);
}

/** An item is one change of the language, there or back. */
void add_switch(const std::string& work, simulation& panel, velarion::panel_hardware& hardware,
                const language_choice& one, const language_choice& other) {
    add_case(work + "/ours", 2, [&panel, one, other] {
        switch_language(panel, one);
        switch_language(panel, other);
    });
    const auto given = std::make_shared<std::array<given_panel, 2>>(
        std::array<given_panel, 2>{panel_in(panel, hardware, one), panel_in(panel, hardware, other)});
    add_case(work + "/floor", 2, [given] {
        lay_out_again(given->front());
        lay_out_again(given->back());
    });
}

} // namespace

int main(int argc, char** argv) {
    const QApplication application(argc, argv);
    try {
        velarion::absent_hardware hardware;
        simulation panel(&hardware);
        if (!panel.panel().open(QString::fromLatin1(FULL_SCREEN))) {
            throw std::runtime_error(std::string("there is no screen ") + FULL_SCREEN);
        }
        add_switch("switch", panel, hardware, GERMAN, FRENCH);
        add_switch("switch_mirrored", panel, hardware, GERMAN, HEBREW);
        return velarion::run_cases(argc, argv);
    } catch (const std::exception& error) {
        std::fprintf(stderr, "bench_panel: %s\n", error.what());
        return 3;
    }
}
