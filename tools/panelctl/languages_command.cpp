#include "command.h"

#include "display.h"
#include "dvc_pnl_rmg_language_resource.h"
#include "dvc_pnl_rmg_message_table.h"
#include "dvc_pnl_rmg_property.h"
#include "panel_session.h"

#include <QApplication>
#include <QJsonArray>
#include <QJsonObject>

namespace {

/** Names of the standard languages for people, by index. */
const char* const LANGUAGE_NAMES[DVC_PNL_RMG_STANDARD_LANGUAGE_COUNT] = {
    "Japanese", "English", "German", "French", "Spanish", "Italian", "Dutch", "Russian"};

struct language_state {
    int language_id = 0;
    int option_language_id = 0;
    bool is_preferred = false;
    int in_force = 0;
    int direction = 1;
};

/** Applies the preferred selection that --prefer asks for, "N" or "N,OPTION". */
bool set_preferred_language(velarion::dvc_pnl_rmg_language_resource& language, const QString& selection) {
    const QStringList ids = selection.split(QLatin1Char(','));
    bool is_id = false;
    bool is_option_id = true;
    const int id = ids.at(0).toInt(&is_id);
    const int option_id = ids.size() > 1 ? ids.at(1).toInt(&is_option_id) : 0;
    if (!is_id || !is_option_id || ids.size() > 2) {
        return false;
    }
    language.dvc_pnl_rmg_set_preferred_language(id, option_id);
    return true;
}

language_state read_state(velarion::dvc_pnl_rmg_language_resource& language) {
    language_state state;
    state.in_force = language.dvc_pnl_rmg_get_language_id(); // first: it may change the selection for good
    state.is_preferred =
        language.dvc_pnl_rmg_get_active_language(state.language_id, state.option_language_id);
    state.direction = language.dvc_pnl_rmg_get_layout_direction();
    return state;
}

void print_languages_as_json(velarion::dvc_pnl_rmg_language_resource& language, const language_state& state) {
    QJsonArray standard;
    for (int i = 0; i < language.dvc_pnl_rmg_get_standard_language_number(); ++i) {
        standard.append(
            QJsonObject{{QStringLiteral("index"), i},
                        {QStringLiteral("id"), standard_language_id_table[i]},
                        {QStringLiteral("name"), QLatin1String(LANGUAGE_NAMES[i])},
                        {QStringLiteral("font_family"), QLatin1String(standard_font_family_table[i])}});
    }
    std::vector<int> ids;
    language.dvc_pnl_rmg_get_option_language_id_array(ids);
    QJsonArray options;
    for (const int id : ids) {
        options.append(QJsonObject{
            {QStringLiteral("id"), id},
            {QStringLiteral("right_to_left"), language.dvc_pnl_rmg_get_option_layout_direction(id) == 0}});
    }
    print_json(QJsonDocument(QJsonObject{
        {QStringLiteral("standard"), standard},
        {QStringLiteral("option"), options},
        {QStringLiteral("in_force"), state.in_force},
        {QStringLiteral("selection"), QJsonArray{state.language_id, state.option_language_id}},
        {QStringLiteral("preferred"), state.is_preferred},
        {QStringLiteral("right_to_left"), state.direction == 0},
    }));
}

QString mark_of(int id, const language_state& state) {
    return id == state.in_force ? QStringLiteral("*") : QStringLiteral(" ");
}

void print_languages(velarion::dvc_pnl_rmg_language_resource& language, const language_state& state) {
    std::vector<QStringList> rows{{QStringLiteral(" "), QStringLiteral("id"), QStringLiteral("language"),
                                   QStringLiteral("direction"), QStringLiteral("font family")}};
    for (int i = 0; i < language.dvc_pnl_rmg_get_standard_language_number(); ++i) {
        const int id = standard_language_id_table[i];
        rows.push_back({mark_of(id, state), QString::number(id), QLatin1String(LANGUAGE_NAMES[i]),
                        describe_direction(1), QLatin1String(standard_font_family_table[i])});
    }
    std::vector<int> ids;
    language.dvc_pnl_rmg_get_option_language_id_array(ids);
    for (const int id : ids) {
        rows.push_back({mark_of(id, state), QString::number(id), QStringLiteral("option language"),
                        describe_direction(language.dvc_pnl_rmg_get_option_layout_direction(id)), QString()});
    }
    print_table(rows);
    print_line(QStringLiteral("\nIn force: %1, %2 (%3 selection %4, %5); the application writes %6.")
                   .arg(state.in_force)
                   .arg(describe_direction(state.direction),
                        state.is_preferred ? QStringLiteral("preferred") : QStringLiteral("standard"))
                   .arg(state.language_id)
                   .arg(state.option_language_id)
                   .arg(describe_direction(QApplication::layoutDirection() == Qt::RightToLeft ? 0 : 1)));
}

} // namespace

int run_languages_command(const QStringList& arguments) {
    const QString command = QStringLiteral("languages");
    QCommandLineParser parser;
    parser.setApplicationDescription(QStringLiteral(
        "Lists the standard languages and the option languages, marks the one in force and tells "
        "the writing\ndirection that it gave the application."));
    parser.addOption({QStringLiteral("prefer"),
                      QStringLiteral("Sets a preferred language first: a language id, or 999,OPTION-ID."),
                      QStringLiteral("N")});
    int exit_code = EXIT_FOUND;
    if (!read_options(parser, command, arguments, exit_code)) {
        return exit_code;
    }
    panel_session session;
    if (parser.isSet(QStringLiteral("prefer")) &&
        !set_preferred_language(session.language(), parser.value(QStringLiteral("prefer")))) {
        return usage_fault(command, QStringLiteral("--prefer takes a language id, or 999,OPTION-ID"));
    }
    const language_state state = read_state(session.language());
    if (parser.isSet(QLatin1String(JSON_OPTION))) {
        print_languages_as_json(session.language(), state);
    } else {
        print_languages(session.language(), state);
    }
    return EXIT_FOUND;
}
