#include "main_window.h"

#include "dvc_pnl_rmg_property.h"
#include "panel_view.h"
#include "screen_table.h"
#include "service_keeper.h"
#include "simulation.h"

#include <QApplication>
#include <QLocale>
#include <QMenuBar>

namespace velarion {

namespace {

/** Names of languages for people, by the library's ids. */
struct language_entry {
    int id;
    const char* name;
};
constexpr language_entry LANGUAGES[] = {{81, "Japanese"},
                                        {1, "English"},
                                        {49, "German"},
                                        {33, "French"},
                                        {34, "Spanish"},
                                        {39, "Italian"},
                                        {31, "Dutch"},
                                        {7, "Russian"},
                                        {86, "Chinese, simplified"},
                                        {886, "Chinese, traditional"},
                                        {972, "Hebrew"}};

QString language_label(const language_choice& choice) {
    const bool is_option = choice.language_id == DVC_PNL_RMG_PROPERTY::LANGUAGE_ID_OPTION;
    const int id = is_option ? choice.option_language_id : choice.language_id;
    QString name = QStringLiteral("Language");
    for (const language_entry& entry : LANGUAGES) {
        name = entry.id == id ? QLatin1String(entry.name) : name;
    }
    return QStringLiteral("%1 (%2%3)").arg(name).arg(id).arg(QLatin1String(is_option ? ", pack" : ""));
}

/** A menu that is filled each time it is opened. */
QMenu* add_changing_menu(QMenu* parent, const QString& title, std::function<void(QMenu* menu)> fill) {
    QMenu* menu = parent->addMenu(title);
    menu->addAction(QStringLiteral("-"));
    QObject::connect(menu, &QMenu::aboutToShow, menu, [menu, fill = std::move(fill)] {
        menu->clear();
        fill(menu);
    });
    return menu;
}

void add_choice(QMenu* menu, const QString& label, bool is_chosen, std::function<void()> choose) {
    QAction* action = menu->addAction(label);
    action->setCheckable(true);
    action->setChecked(is_chosen);
    QObject::connect(action, &QAction::triggered, menu, std::move(choose));
}

void fill_preferred(QMenu* menu, simulation& panel) {
    const language_choice now = panel.preferred_language();
    add_choice(menu, QStringLiteral("None: the machine's own"), now == language_choice{},
               [&panel] { panel.choose_preferred_language({}); });
    for (const language_choice& choice : panel.languages()) {
        add_choice(menu, language_label(choice), choice == now,
                   [&panel, choice] { panel.choose_preferred_language(choice); });
    }
}

void fill_standard(QMenu* menu, simulation& panel) {
    const language_choice now = panel.standard_language();
    for (const language_choice& choice : panel.languages()) {
        add_choice(menu, language_label(choice), choice == now,
                   [&panel, choice] { panel.choose_standard_language(choice); });
    }
}

void fill_screens(QMenu* menu, simulation& panel) {
    for (const screen_entry& screen : all_screens()) {
        const QString name = QLatin1String(screen.name);
        add_choice(menu, QStringLiteral("%1: %2").arg(name, QLatin1String(screen.description)),
                   name == panel.panel().screen_name(), [&panel, name] {
                       panel.panel().go_home();
                       panel.panel().open(name);
                   });
    }
}

void add_panel_menu(main_window& window, simulation& panel) {
    QMenu* menu = window.menuBar()->addMenu(QStringLiteral("&Panel"));
    add_changing_menu(menu, QStringLiteral("&Language"),
                      [&panel](QMenu* sub) { fill_preferred(sub, panel); });
    add_changing_menu(menu, QStringLiteral("&Machine's language"),
                      [&panel](QMenu* sub) { fill_standard(sub, panel); });
    add_changing_menu(menu, QStringLiteral("S&creen"), [&panel](QMenu* sub) { fill_screens(sub, panel); });
    menu->addSeparator();
    menu->addAction(QStringLiteral("&Save a picture…"), &window, &main_window::save_screenshot,
                    QKeySequence::Save);
    menu->addSeparator();
    menu->addAction(QStringLiteral("&Quit"), &window, &QWidget::close, QKeySequence(Qt::CTRL + Qt::Key_Q));
}

void add_machine_menu(main_window& window, simulation& panel) {
    QMenu* menu = window.menuBar()->addMenu(QStringLiteral("&Machine"));
    QMenu* jams = menu->addMenu(QStringLiteral("&Jam paper in"));
    for (const jam_place& place : jam_places()) {
        jams->addAction(QLatin1String(place.name), &window,
                        [&panel, &place] { panel.machine().raise_jam(place); });
    }
    menu->addAction(
        QStringLiteral("&Clear the jam"), &window, [&panel] { panel.machine().clear_jam(); },
        QKeySequence(Qt::CTRL + Qt::SHIFT + Qt::Key_J));
}

void add_service_menu(main_window& window, service_keeper& service) {
    struct entry {
        const char* label;
        const char* command;
    };
    static const entry entries[] = {{"&Start", "start"},
                                    {"S&top", "stop"},
                                    {"&Kill", "kill"},
                                    {"&Pause", "pause"},
                                    {"&Continue", "continue"},
                                    {"&Restart", "restart"},
                                    {nullptr, nullptr},
                                    {"&Delay answers by 500 ms", "delay 500"},
                                    {"Re&fuse requests with 7", "refuse 7"},
                                    {"Dr&op requests", "drop"},
                                    {"&Normal", "normal"}};
    QMenu* menu = window.menuBar()->addMenu(QStringLiteral("&Service"));
    for (const entry& one : entries) {
        if (!one.label) {
            menu->addSeparator();
            continue;
        }
        const QStringList words = QString::fromLatin1(one.command).split(QLatin1Char(' '));
        menu->addAction(QLatin1String(one.label), &window, [&window, &service, words] {
            const QString fault = service.run(words);
            if (!fault.isEmpty()) {
                window.tell(fault);
            }
        });
    }
}

void add_view_menu(main_window& window) {
    QMenu* menu = window.menuBar()->addMenu(QStringLiteral("&View"));
    panel_view& view = window.view();
    QAction* in =
        menu->addAction(QStringLiteral("Zoom &in"), &window, [&view] { view.set_zoom(view.zoom() + 1); });
    in->setShortcuts({QKeySequence(Qt::CTRL + Qt::Key_Plus), QKeySequence(Qt::CTRL + Qt::Key_Equal)});
    menu->addAction(
        QStringLiteral("Zoom &out"), &window, [&view] { view.set_zoom(view.zoom() - 1); },
        QKeySequence(Qt::CTRL + Qt::Key_Minus));
    menu->addAction(
        QStringLiteral("&Actual pixels"), &window, [&view] { view.set_zoom(1); },
        QKeySequence(Qt::CTRL + Qt::Key_0));
    menu->addSeparator();
    QAction* side = menu->addAction(QStringLiteral("&Side bar"));
    side->setCheckable(true);
    side->setChecked(true);
    side->setShortcut(QKeySequence(Qt::CTRL + Qt::Key_I));
    QObject::connect(side, &QAction::toggled, &window, &main_window::show_side_bar);
    menu->addAction(QStringLiteral("&Next part of the window"), &window, &main_window::go_to_next_pane,
                    QKeySequence(Qt::Key_F6));
}

} // namespace

void add_window_menus(main_window& window, const window_parts& parts) {
    add_panel_menu(window, parts.panel);
    add_machine_menu(window, parts.panel);
    add_service_menu(window, parts.service);
    add_view_menu(window);
    QMenu* help = window.menuBar()->addMenu(QStringLiteral("&Help"));
    help->addAction(QStringLiteral("&Keys of the device"), &window, &main_window::show_keys,
                    QKeySequence(Qt::Key_F1));
}

} // namespace velarion
