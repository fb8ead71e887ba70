#include "command.h"

#include "command_line.h"
#include "display.h"
#include "dvc_pnl_rmg_language_resource.h"
#include "keyboard_file.h"
#include "panel_session.h"

#include <QFileInfo>
#include <QJsonArray>
#include <QJsonObject>

namespace velarion {

namespace {

const QString COMMAND = QStringLiteral("keyboard");

/** Everything about the keyboards of a language. */
struct keyboard_report {
    int language_id = 0;
    bool is_convert_enabled = false;
    QString information_path;
    QString prohibition_path;
    language_information information;
    prohibitions rules;
    std::vector<std::pair<QString, keyboard>> keyboards; ///< by path
};

/** A path from one of the library's operations. @param name  what it starts from */
template <typename OPERATION> QString path_of(const QString& name, OPERATION operation) {
    int first = 0;
    int second = 0;
    std::string path = name.toUtf8().constData();
    operation(first, second, path);
    return QString::fromUtf8(path.c_str());
}

void find_files(dvc_pnl_rmg_language_resource& language, keyboard_report& report) {
    const int id = report.language_id;
    report.is_convert_enabled = language.dvc_pnl_rmg_is_convert_enable_by_destination();
    report.information_path = path_of({}, [&](int& first, int& second, std::string& path) {
        language.dvc_pnl_rmg_get_language_info_file_param(id, first, second, path);
    });
    report.prohibition_path = path_of({}, [&](int& first, int& second, std::string& path) {
        language.dvc_pnl_rmg_get_prohibition_info_file_param(id, first, second, path);
    });
}

/** A keyboard that the destination does not give is in neither folder: it is left out. */
bool read_keyboards(dvc_pnl_rmg_language_resource& language, keyboard_report& report, QString& fault) {
    for (const QString& name : report.information.keyboards) {
        const QString path = path_of(name, [&](int& first, int& second, std::string& full_path) {
            language.dvc_pnl_rmg_get_keymap_file_param(report.language_id, first, second, full_path);
        });
        keyboard board;
        if (!QFileInfo::exists(path)) {
            continue;
        }
        if (!read_keyboard(path, board, fault)) {
            return false;
        }
        report.keyboards.emplace_back(path, board);
    }
    return true;
}

bool read_report(dvc_pnl_rmg_language_resource& language, keyboard_report& report, QString& fault) {
    find_files(language, report);
    return read_language_information(report.information_path, report.language_id, report.information,
                                     fault) &&
           read_prohibitions(report.prohibition_path, report.language_id, report.rules, fault) &&
           read_keyboards(language, report, fault);
}

QString describe_key(const keyboard_key& key) {
    return key.function.isEmpty() ? key.text : QStringLiteral("{%1}").arg(key.function);
}

QJsonObject to_json(const keyboard_key& key) {
    QJsonObject object{{QStringLiteral("width"), key.width}};
    object.insert(key.function.isEmpty() ? QStringLiteral("text") : QStringLiteral("function"),
                  key.function.isEmpty() ? key.text : key.function);
    if (!key.held.isEmpty()) {
        object.insert(QStringLiteral("held"), key.held);
    }
    return object;
}

QJsonObject to_json(const keyboard_layer& layer) {
    QJsonArray rows;
    for (const auto& row : layer.rows) {
        QJsonArray keys;
        for (const keyboard_key& key : row) {
            keys.append(to_json(key));
        }
        rows.append(keys);
    }
    return {{QStringLiteral("name"), layer.name}, {QStringLiteral("rows"), rows}};
}

QJsonObject to_json(const QString& path, const keyboard& board) {
    QJsonArray layers;
    for (const keyboard_layer& layer : board.layers) {
        layers.append(to_json(layer));
    }
    QJsonObject compositions;
    for (const auto& composition : board.compositions) {
        compositions.insert(composition.first, composition.second);
    }
    return {{QStringLiteral("file"), path},
            {QStringLiteral("name"), board.name},
            {QStringLiteral("right_to_left"), board.is_right_to_left},
            {QStringLiteral("layers"), layers},
            {QStringLiteral("compositions"), compositions}};
}

void print_report_as_json(const keyboard_report& report) {
    QJsonArray keyboards;
    for (const auto& board : report.keyboards) {
        keyboards.append(to_json(board.first, board.second));
    }
    QJsonObject rules;
    for (const auto& rule : report.rules) {
        rules.insert(rule.first, rule.second);
    }
    print_json(QJsonDocument(QJsonObject{{QStringLiteral("language"), report.language_id},
                                         {QStringLiteral("name"), report.information.name},
                                         {QStringLiteral("convert"), report.is_convert_enabled},
                                         {QStringLiteral("language_information"), report.information_path},
                                         {QStringLiteral("prohibition_information"), report.prohibition_path},
                                         {QStringLiteral("prohibitions"), rules},
                                         {QStringLiteral("keyboards"), keyboards}}));
}

void print_layer(const keyboard_layer& layer) {
    print_line(QStringLiteral("  [%1]").arg(layer.name));
    for (const auto& row : layer.rows) {
        QStringList keys;
        for (const keyboard_key& key : row) {
            keys.append(describe_key(key));
        }
        print_line(QStringLiteral("    ") + keys.join(QLatin1Char(' ')));
    }
}

void print_report(const keyboard_report& report) {
    std::vector<QStringList> rows{
        {QStringLiteral("language"),
         QString::number(report.language_id) + QLatin1Char(' ') + report.information.name},
        {QStringLiteral("conversion by destination"),
         report.is_convert_enabled ? QStringLiteral("enabled") : QStringLiteral("not enabled")},
        {QStringLiteral("language information"), report.information_path},
        {QStringLiteral("prohibition information"), report.prohibition_path},
    };
    for (const auto& rule : report.rules) {
        rows.push_back({QStringLiteral("  ") + rule.first, as_one_line(rule.second)});
    }
    print_table(rows);
    for (const auto& board : report.keyboards) {
        print_line(QStringLiteral("\n%1  %2, %3, %4 compositions")
                       .arg(board.first, board.second.name,
                            describe_direction(board.second.is_right_to_left ? 0 : 1))
                       .arg(board.second.compositions.size()));
        for (const keyboard_layer& layer : board.second.layers) {
            print_layer(layer);
        }
    }
}

/** @return the exit code; a report without a keyboard is printed all the same */
int show_report(const keyboard_report& report, bool as_json) {
    if (as_json) {
        print_report_as_json(report);
    } else {
        print_report(report);
    }
    if (report.keyboards.empty()) {
        report_fault(QStringLiteral("%1 lists no keyboard of language %2")
                         .arg(report.information_path)
                         .arg(report.language_id));
        return EXIT_NOT_FOUND;
    }
    return EXIT_FOUND;
}

} // namespace

int run_keyboard_command(const QStringList& arguments) {
    QCommandLineParser parser;
    parser.setApplicationDescription(QStringLiteral(
        "Shows the keyboard, language information and prohibition files of a language as the "
        "library\nnames them, and what they hold. Without --language: of the language in force."));
    parser.addOption(language_option());
    int exit_code = EXIT_FOUND;
    if (!read_options(parser, COMMAND, arguments, exit_code)) {
        return exit_code;
    }
    panel_session session;
    keyboard_report report;
    if (!read_language_option(parser, COMMAND, session.language(), report.language_id)) {
        return EXIT_USAGE;
    }
    QString fault;
    if (!read_report(session.language(), report, fault)) {
        report_fault(fault);
        return EXIT_SERVICE;
    }
    return show_report(report, parser.isSet(QLatin1String(JSON_OPTION)));
}

} // namespace velarion
