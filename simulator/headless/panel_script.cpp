#include "hard_key.h"
#include "language_names.h"
#include "panel_report.h"
#include "panel_touch.h"
#include "screen_pictures.h"
#include "script_runner.h"
#include "settings_database.h"
#include "simulator_options.h"

#include "dvc_pnl_rmg_language_resource.h"

#include <QApplication>
#include <QKeyEvent>

#include <algorithm>

namespace velarion {

namespace {

using words = QStringList;

/** @return the fault, or an empty text */
QString read_choice(const simulation& panel, const QString& word, language_choice& choice) {
    choice = {};
    int id = 0;
    if (word == QLatin1String("none")) {
        return {};
    }
    const bool is_language = read_language(word.toStdString(), id);
    choice = simulation::choice_of(id);
    const std::vector<language_choice> known = panel.languages();
    return is_language && std::find(known.begin(), known.end(), choice) != known.end()
               ? QString()
               : QStringLiteral("the panel has no language \"%1\"").arg(word);
}

script_outcome type_text(panel_frame& panel, const QString& text) {
    QWidget* target = panel.focusWidget();
    if (!target) {
        return script_outcome::unmet(QStringLiteral("nothing on the screen takes keys"));
    }
    for (const QChar character : text) {
        for (const QEvent::Type type : {QEvent::KeyPress, QEvent::KeyRelease}) {
            QKeyEvent event(type, 0, Qt::NoModifier, QString(character));
            QCoreApplication::sendEvent(target, &event);
        }
    }
    return {};
}

/** Changes a device setting, and tells the library as a host does. @return the fault, or an empty text */
QString change_setting(simulation& panel, const words& word) {
    bool is_number = false;
    const qint64 value = word[1].toLongLong(&is_number, 0);
    if (!is_number) {
        return QStringLiteral("\"%1\" is no number").arg(word[1]);
    }
    std::string fault;
    const platform_code code = settings_database().write(word[0].toUtf8().constData(), value, fault);
    if (code != PLATFORM_OK && code != PLATFORM_NOT_DURABLE) {
        return QString::fromUtf8(fault.c_str());
    }
    panel.reload_languages();
    return {};
}

script_outcome check_text(const panel_contents& contents, const QString& wanted) {
    for (const shown_text& text : contents.texts) {
        if (text.message.id() == wanted || text.text == wanted) {
            return {};
        }
    }
    QStringList shown;
    for (const shown_text& text : contents.texts) {
        shown.append(QStringLiteral("%1 \"%2\"").arg(text.message.id(), text.text));
    }
    return script_outcome::unmet(
        QStringLiteral("text %1 is not shown; shown are %2").arg(wanted, shown.join(QLatin1String(", "))));
}

script_outcome check_picture(const panel_contents& contents, const QString& wanted) {
    QStringList shown;
    for (const shown_picture& picture : contents.pictures) {
        if (picture.id == wanted || picture.found_name == wanted) {
            return {};
        }
        shown.append(picture.found_name);
    }
    return script_outcome::unmet(
        QStringLiteral("picture %1 is not shown; shown are %2").arg(wanted, shown.join(QLatin1String(", "))));
}

script_outcome check_fault(const panel_contents& contents, const QString& name) {
    unsigned int faults = 0;
    QString unknown;
    if (!read_fault_classes(name, faults, unknown)) {
        return script_outcome::wrong(QStringLiteral("there is no fault \"%1\"").arg(unknown));
    }
    const panel_findings found = panel_examiner().examine(contents);
    return script_outcome::of(has_fault(found.counts, faults), QStringLiteral("there is no such fault"));
}

int language_in_force() {
    return dvc_pnl_rmg_language_resource::dvc_pnl_rmg_get_instance()->dvc_pnl_rmg_get_language_id();
}

void add_language_commands(script_runner& runner, simulation& panel, panel_stage& stage) {
    runner.add_command(QStringLiteral("language"), QStringLiteral("ID | none"), 1, 1, [&](const words& word) {
        language_choice choice{};
        const QString fault = read_choice(panel, word[0], choice);
        if (fault.isEmpty()) {
            stage.show_language(choice);
        }
        return script_outcome::of_fault(fault);
    });
    runner.add_command(QStringLiteral("standard"), QStringLiteral("ID"), 1, 1, [&](const words& word) {
        language_choice choice{};
        const QString fault = read_choice(panel, word[0], choice);
        if (fault.isEmpty()) {
            panel.choose_standard_language(choice);
        }
        return script_outcome::of_fault(fault);
    });
    runner.add_command(QStringLiteral("setting"), QStringLiteral("NAME VALUE"), 2, 2, [&](const words& word) {
        return script_outcome::of_fault(change_setting(panel, word));
    });
}

void add_touch_commands(script_runner& runner, simulation& panel, panel_stage& stage) {
    runner.add_command(QStringLiteral("tap"), QStringLiteral("NAME"), 1, 1, [&](const words& word) {
        stage.panel_picture(); // lays out what has just been opened
        QPoint place;
        const QString fault = find_touchable(panel.panel(), word[0], place);
        if (fault.isEmpty()) {
            touch_panel(panel.panel(), place);
        }
        return script_outcome::of_fault(fault);
    });
    runner.add_command(QStringLiteral("key"), QStringLiteral("NAME | NUMBER"), 1, 1, [&](const words& word) {
        int key = 0;
        const bool is_found = find_hard_key(word[0], key);
        if (is_found) {
            panel.panel().take_key(key);
        }
        return script_outcome::of_fault(is_found ? QString()
                                                 : QStringLiteral("no hard key \"%1\"").arg(word[0]));
    });
    runner.add_command(QStringLiteral("type"), QStringLiteral("TEXT"), 1, 1,
                       [&](const words& word) { return type_text(panel.panel(), word[0]); });
}

} // namespace

void add_panel_commands(script_runner& runner, simulation& panel, panel_stage& stage) {
    add_language_commands(runner, panel, stage);
    add_touch_commands(runner, panel, stage);
    runner.add_command(QStringLiteral("view"), QStringLiteral("NAME"), 1, 1, [&](const words& word) {
        const std::optional<screen_view> view = panel_stage::find_view(word[0]);
        if (view) {
            stage.show(*view, panel.preferred_language());
        }
        return script_outcome::of_fault(
            view ? QString() : QStringLiteral("no screen \"%1\"; see --list-screens").arg(word[0]));
    });
    runner.add_command(QStringLiteral("jam"), QStringLiteral("PLACE | clear"), 1, 1, [&](const words& word) {
        const jam_place* place = find_jam_place(word[0]);
        if (place) {
            panel.machine().raise_jam(*place);
        } else if (word[0] == QLatin1String("clear")) {
            panel.machine().clear_jam();
        } else {
            return script_outcome::wrong(QStringLiteral("paper does not jam in \"%1\"").arg(word[0]));
        }
        return script_outcome{};
    });
    runner.add_command(QStringLiteral("screenshot"), QStringLiteral("FILE"), 1, 1, [&](const words& word) {
        QString fault;
        save_picture(stage.picture(), word[0], fault);
        return script_outcome::of_fault(fault);
    });
}

void add_panel_conditions(script_runner& runner, simulation& panel, panel_stage& stage) {
    runner.add_condition(QStringLiteral("screen"), QStringLiteral("NAME"), 1, 1, [&](const words& word) {
        const QString open = panel.panel().screen_name();
        return script_outcome::of(open == word[0],
                                  QStringLiteral("screen %1 is open, not %2").arg(open, word[0]));
    });
    runner.add_condition(QStringLiteral("text"), QStringLiteral("ID | TEXT"), 1, 1,
                         [&](const words& word) { return check_text(stage.contents(), word[0]); });
    runner.add_condition(QStringLiteral("picture"), QStringLiteral("ID | FILE"), 1, 1,
                         [&](const words& word) { return check_picture(stage.contents(), word[0]); });
    runner.add_condition(QStringLiteral("language"), QStringLiteral("ID"), 1, 1, [&](const words& word) {
        const QString id = QString::number(language_in_force());
        return script_outcome::of(id == word[0],
                                  QStringLiteral("language %1 is in force, not %2").arg(id, word[0]));
    });
    runner.add_condition(
        QStringLiteral("direction"), QStringLiteral("ltr | rtl"), 1, 1, [&](const words& word) {
            const QString direction = QLatin1String(stage.is_right_to_left() ? "rtl" : "ltr");
            return script_outcome::of(direction == word[0],
                                      QStringLiteral("the direction is %1").arg(direction));
        });
    runner.add_condition(QStringLiteral("fault"),
                         QStringLiteral("overflow | overlap | glyphs | pictures | fallbacks"), 1, 1,
                         [&](const words& word) { return check_fault(stage.contents(), word[0]); });
    runner.add_condition(QStringLiteral("jam"), QString(), 0, 0, [&](const words&) {
        return script_outcome::of(panel.machine().jam().has_value(), QStringLiteral("there is no paper jam"));
    });
    runner.add_condition(QStringLiteral("job"), QString(), 0, 0, [&](const words&) {
        return script_outcome::of(panel.machine().current_job(), QStringLiteral("no job is at work"));
    });
}

} // namespace velarion
