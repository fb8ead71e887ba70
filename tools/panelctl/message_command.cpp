#include "command.h"

#include "command_line.h"
#include "display.h"
#include "dvc_pnl_common_utility.h"
#include "dvc_pnl_rmg_language_resource.h"
#include "dvc_pnl_rmg_property.h"
#include "panel_session.h"

#include <QJsonArray>
#include <QJsonObject>

#include <algorithm>

namespace velarion {

namespace {

const QString COMMAND = QStringLiteral("message");

/** What the library holds under a key. */
struct message_entry {
    QString key;
    bool is_found = false;
    int exit_code = EXIT_NOT_FOUND; ///< while it is not found: the reason
    bool is_table_message = false;  ///< otherwise a data file
    DVC_PNL_RMG_IMPL_MESSAGE record = {0, "", 0};
    std::vector<std::pair<int, QString>> texts; ///< by language id
};

/** @return whether there is a data file with a text; @p exit_code tells a missing one from a bad one */
bool holds_file(dvc_pnl_rmg_language_resource& language, const QByteArray& key, int& exit_code) {
    std::string text;
    int error = 0;
    const int result = language.dvc_pnl_rmg_get_message_data(key.constData(), text, error);
    exit_code = result == DVC_PNL_RMG_RESULT_IO_ERROR ? EXIT_SERVICE : EXIT_NOT_FOUND;
    return result == DVC_PNL_RMG_RESULT_OK;
}

message_entry look_up(dvc_pnl_rmg_language_resource& language, const QString& key,
                      const std::vector<int>& language_ids) {
    message_entry entry;
    entry.key = key;
    const QByteArray bytes = key.toUtf8();
    DVC_PNL_RMG_IMPL_MESSAGE wanted = {0, "", 0};
    entry.is_table_message = dvc_pnl_common_utility::string_to_int(bytes.constData(), wanted.message_id);
    entry.is_found = entry.is_table_message ? language.search_message_element(wanted, entry.record)
                                            : holds_file(language, bytes, entry.exit_code);
    if (entry.is_found) {
        for (const int id : language_ids) {
            entry.texts.emplace_back(id, language.dvc_pnl_rmg_get_message(bytes.constData(), id));
        }
    }
    return entry;
}

QJsonObject to_json(const message_entry& entry) {
    QJsonObject object{{QStringLiteral("key"), entry.key}, {QStringLiteral("found"), entry.is_found}};
    if (entry.is_found && entry.is_table_message) {
        object.insert(QStringLiteral("id"), entry.record.message_id);
        object.insert(QStringLiteral("name"), QLatin1String(entry.record.message_name));
        object.insert(QStringLiteral("row"), entry.record.message_table_index);
    }
    QJsonArray texts;
    for (const auto& text : entry.texts) {
        texts.append(
            QJsonObject{{QStringLiteral("language"), text.first}, {QStringLiteral("text"), text.second}});
    }
    object.insert(QStringLiteral("texts"), texts);
    return object;
}

void report_missing(const message_entry& entry) {
    const QString text = entry.is_table_message ? QStringLiteral("there is no message %1")
                         : entry.exit_code == EXIT_SERVICE
                             ? QStringLiteral("message data file \"%1\" is empty or cannot be read")
                             : QStringLiteral("there is no message data file \"%1\"");
    report_fault(text.arg(entry.key));
}

void print_entry(const message_entry& entry) {
    if (entry.texts.size() == 1) {
        const QString& text = entry.texts.front().second;
        print_line(text);
        if (text.isEmpty()) {
            report_fault(QStringLiteral("\"%1\" has no text in language %2")
                             .arg(entry.key)
                             .arg(entry.texts.front().first));
        }
        return;
    }
    print_line(entry.is_table_message ? QStringLiteral("%1  %2  row %3")
                                            .arg(entry.record.message_id)
                                            .arg(as_one_line(QLatin1String(entry.record.message_name)))
                                            .arg(entry.record.message_table_index)
                                      : entry.key);
    std::vector<QStringList> rows;
    for (const auto& text : entry.texts) {
        rows.push_back({QStringLiteral("%1").arg(text.first, 5), as_one_line(text.second)});
    }
    print_table(rows);
}

std::vector<int> all_language_ids(dvc_pnl_rmg_language_resource& language) {
    const int* standard = language.dvc_pnl_rmg_get_standard_language_id_array();
    std::vector<int> ids(standard, standard + language.dvc_pnl_rmg_get_standard_language_number());
    language.dvc_pnl_rmg_get_option_language_id_array(ids);
    return ids;
}

bool read_id(const QCommandLineParser& parser, const QString& option, int& id, QString& fault) {
    if (!parser.isSet(option)) {
        return true;
    }
    bool is_number = false;
    id = parser.value(option).toInt(&is_number);
    if (!is_number) {
        fault = QStringLiteral("--%1 \"%2\" is no language id").arg(option, parser.value(option));
    }
    return is_number;
}

/** The languages that the options ask for; the language in force when they ask for none. */
bool choose_languages(const QCommandLineParser& parser, dvc_pnl_rmg_language_resource& language,
                      std::vector<int>& ids, QString& fault) {
    const int option_language = DVC_PNL_RMG_PROPERTY::LANGUAGE_ID_OPTION;
    int id = parser.isSet(QStringLiteral("option")) ? option_language : 0;
    int option_id = 0;
    if (!read_id(parser, QStringLiteral("language"), id, fault) ||
        !read_id(parser, QStringLiteral("option"), option_id, fault)) {
        return false;
    }
    if (parser.isSet(QStringLiteral("all"))) {
        ids = all_language_ids(language);
    } else if (id == 0 && !parser.isSet(QStringLiteral("language"))) {
        ids = {language.dvc_pnl_rmg_get_language_id()};
    } else {
        ids = {id == option_language ? option_id : id};
    }
    return true;
}

void describe_arguments(QCommandLineParser& parser) {
    parser.setApplicationDescription(QStringLiteral(
        "Prints the text of each message. A key is a message id, or the name of a message data "
        "file.\nWithout an option the text comes in the language in force. A language that is "
        "not known\nfalls back as on the panel."));
    parser.addPositionalArgument(QStringLiteral("key"), QStringLiteral("Message id or data file."),
                                 QStringLiteral("KEY..."));
    parser.addOptions({
        {QStringLiteral("language"), QStringLiteral("Language id; 999 is the option language of --option."),
         QStringLiteral("N")},
        {QStringLiteral("option"), QStringLiteral("Option language id."), QStringLiteral("N")},
        {QStringLiteral("all"), QStringLiteral("Every standard and every configured option language.")},
    });
}

/** Prints what is found under the keys. @return the exit code */
int show_messages(dvc_pnl_rmg_language_resource& language, const QStringList& keys,
                  const std::vector<int>& ids, bool as_json) {
    int exit_code = EXIT_FOUND;
    QJsonArray entries;
    for (const QString& key : keys) {
        const message_entry entry = look_up(language, key, ids);
        if (!entry.is_found) {
            exit_code = std::max(exit_code, entry.exit_code);
            report_missing(entry);
        }
        if (as_json) {
            entries.append(to_json(entry));
        } else if (entry.is_found) {
            print_entry(entry);
        }
    }
    if (as_json) {
        print_json(QJsonDocument(entries));
    }
    return exit_code;
}

} // namespace

int run_message_command(const QStringList& arguments) {
    QCommandLineParser parser;
    describe_arguments(parser);
    int exit_code = EXIT_FOUND;
    if (!read_arguments(parser, COMMAND, arguments, exit_code)) {
        return exit_code;
    }
    if (parser.positionalArguments().isEmpty()) {
        return usage_fault(COMMAND, QStringLiteral("no key"));
    }
    panel_session session;
    std::vector<int> ids;
    QString fault;
    if (!choose_languages(parser, session.language(), ids, fault)) {
        return usage_fault(COMMAND, fault);
    }
    return show_messages(session.language(), parser.positionalArguments(), ids,
                         parser.isSet(QLatin1String(JSON_OPTION)));
}

} // namespace velarion
