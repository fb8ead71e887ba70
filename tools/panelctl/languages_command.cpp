#include "command.h"

#include "command_line.h"
#include "display.h"
#include "dvc_pnl_rmg_language_resource.h"
#include "dvc_pnl_rmg_message_table.h"
#include "dvc_pnl_rmg_property.h"
#include "keyboard_file.h"
#include "language_names.h"
#include "panel_session.h"

#include <QApplication>
#include <QFileInfo>
#include <QJsonArray>
#include <QJsonObject>

#include <algorithm>

namespace velarion {

namespace {

QString english_name(int id) {
    const language_name* named = find_language(id);
    return named ? QLatin1String(named->english) : QString();
}

QString tag_of(int id) {
    const language_name* named = find_language(id);
    return named ? QLatin1String(named->tag) : QString();
}

struct language_state {
    int language_id = 0;
    int option_language_id = 0;
    bool is_preferred = false;
    int in_force = 0;
    int direction = 1;
};

bool is_standard(int id) {
    const std::int32_t* end = standard_language_id_table + DVC_PNL_RMG_STANDARD_LANGUAGE_COUNT;
    return std::find(standard_language_id_table, end, id) != end;
}

/** Applies the preferred selection that --prefer asks for: "N", "N,OPTION", or the name of either. */
bool set_preferred_language(dvc_pnl_rmg_language_resource& language, const QString& selection) {
    const QStringList words = selection.split(QLatin1Char(','));
    int id = 0;
    int option_id = 0;
    if (words.size() > 2 || !read_language(words.at(0).toUtf8().constData(), id) ||
        (words.size() == 2 && !read_language(words.at(1).toUtf8().constData(), option_id))) {
        return false;
    }
    if (!is_standard(id) && words.size() == 1 && words.at(0) != QString::number(id)) {
        option_id = id; // as the panel itself selects one; a bare number is taken as it is
        id = DVC_PNL_RMG_PROPERTY::LANGUAGE_ID_OPTION;
    }
    language.dvc_pnl_rmg_set_preferred_language(id, option_id);
    return true;
}

language_state read_state(dvc_pnl_rmg_language_resource& language) {
    language_state state;
    state.in_force = language.dvc_pnl_rmg_get_language_id(); // first: it may change the selection for good
    state.is_preferred =
        language.dvc_pnl_rmg_get_active_language(state.language_id, state.option_language_id);
    state.direction = language.dvc_pnl_rmg_get_layout_direction();
    return state;
}

/** An option language as its pack describes it. */
struct option_language {
    int id = 0;
    QString name; ///< in itself; empty when the pack's language information does not tell
    int direction = 1;
    QString font_family; ///< empty when the pack tells none
};

/** @return false when a file of a pack is there but cannot be read, which is reported */
bool read_option_languages(dvc_pnl_rmg_language_resource& language, std::vector<option_language>& options) {
    std::vector<int> ids;
    language.dvc_pnl_rmg_get_option_language_id_array(ids);
    bool is_good = true;
    for (const int id : ids) {
        int first = 0;
        int second = 0;
        std::string path;
        language.dvc_pnl_rmg_get_language_info_file_param(id, first, second, path);
        language_information information;
        QString fault;
        if (QFileInfo::exists(QString::fromStdString(path)) &&
            !read_language_information(QString::fromStdString(path), id, information, fault)) {
            report_fault(fault);
            is_good = false;
        }
        options.push_back({id, information.name, language.dvc_pnl_rmg_get_option_layout_direction(id),
                           QString::fromUtf8(language.dvc_pnl_rmg_get_font_name(id))});
    }
    return is_good;
}

void print_languages_as_json(dvc_pnl_rmg_language_resource& language,
                             const std::vector<option_language>& options, const language_state& state) {
    QJsonArray standard_as_json;
    for (int i = 0; i < language.dvc_pnl_rmg_get_standard_language_number(); ++i) {
        standard_as_json.append(
            QJsonObject{{QStringLiteral("index"), i},
                        {QStringLiteral("id"), standard_language_id_table[i]},
                        {QStringLiteral("name"), english_name(standard_language_id_table[i])},
                        {QStringLiteral("tag"), tag_of(standard_language_id_table[i])},
                        {QStringLiteral("font_family"), QLatin1String(standard_font_family_table[i])}});
    }
    QJsonArray options_as_json;
    for (const option_language& option : options) {
        options_as_json.append(QJsonObject{{QStringLiteral("id"), option.id},
                                           {QStringLiteral("name"), option.name},
                                           {QStringLiteral("tag"), tag_of(option.id)},
                                           {QStringLiteral("right_to_left"), option.direction == 0},
                                           {QStringLiteral("font_family"), option.font_family}});
    }
    print_json(QJsonDocument(QJsonObject{
        {QStringLiteral("standard"), standard_as_json},
        {QStringLiteral("option"), options_as_json},
        {QStringLiteral("in_force"), state.in_force},
        {QStringLiteral("selection"), QJsonArray{state.language_id, state.option_language_id}},
        {QStringLiteral("preferred"), state.is_preferred},
        {QStringLiteral("right_to_left"), state.direction == 0},
    }));
}

QString mark_of(int id, const language_state& state) {
    return id == state.in_force ? QStringLiteral("*") : QStringLiteral(" ");
}

void print_languages(dvc_pnl_rmg_language_resource& language, const std::vector<option_language>& options,
                     const language_state& state) {
    std::vector<QStringList> rows{{QStringLiteral(" "), QStringLiteral("id"), QStringLiteral("tag"),
                                   QStringLiteral("language"), QStringLiteral("direction"),
                                   QStringLiteral("font family")}};
    for (int i = 0; i < language.dvc_pnl_rmg_get_standard_language_number(); ++i) {
        const int id = standard_language_id_table[i];
        rows.push_back({mark_of(id, state), QString::number(id), tag_of(id), english_name(id),
                        describe_direction(1), QLatin1String(standard_font_family_table[i])});
    }
    for (const option_language& option : options) {
        rows.push_back({mark_of(option.id, state), QString::number(option.id), tag_of(option.id),
                        option.name.isEmpty() ? QStringLiteral("option language") : as_one_line(option.name),
                        describe_direction(option.direction), as_one_line(option.font_family)});
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
    parser.addOption(
        {QStringLiteral("prefer"),
         QStringLiteral(
             "Sets a preferred language first: its number or a name as \"de\", or 999,OPTION-LANGUAGE."),
         QStringLiteral("LANGUAGE")});
    int exit_code = EXIT_FOUND;
    if (!read_options(parser, command, arguments, exit_code)) {
        return exit_code;
    }
    panel_session session;
    if (parser.isSet(QStringLiteral("prefer")) &&
        !set_preferred_language(session.language(), parser.value(QStringLiteral("prefer")))) {
        return usage_fault(command, QStringLiteral("--prefer takes a language, or 999,OPTION-LANGUAGE"));
    }
    const language_state state = read_state(session.language());
    std::vector<option_language> options;
    exit_code = read_option_languages(session.language(), options) ? EXIT_FOUND : EXIT_SERVICE;
    if (parser.isSet(QLatin1String(JSON_OPTION))) {
        print_languages_as_json(session.language(), options, state);
    } else {
        print_languages(session.language(), options, state);
    }
    return exit_code;
}

} // namespace velarion
