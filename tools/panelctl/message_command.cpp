#include "command.h"

#include "command_line.h"
#include "display.h"
#include "dvc_pnl_common_utility.h"
#include "dvc_pnl_rmg_language_resource.h"
#include "dvc_pnl_rmg_property.h"
#include "language_names.h"
#include "message_query.h"
#include "panel_session.h"

#include <QJsonArray>
#include <QJsonObject>

#include <algorithm>

namespace velarion {

namespace {

const QString COMMAND = QStringLiteral("message");

/** How a key led to what is found. */
enum class key_kind { ID, NAME, TEXT, DATA_FILE };
constexpr const char* KIND_NAMES[] = {"id", "name", "text", "data file"};

/** What the library holds under a key. */
struct message_entry {
    QString key;
    key_kind kind = key_kind::DATA_FILE;
    bool is_found = false;
    int exit_code = EXIT_NOT_FOUND;               ///< while it is not found: the reason
    DVC_PNL_RMG_IMPL_MESSAGE record = {0, "", 0}; ///< of no data file
    std::vector<std::pair<int, QString>> texts;   ///< by language id
};

/** @return whether there is a data file with a text; @p exit_code tells a missing one from a bad one */
bool holds_file(dvc_pnl_rmg_language_resource& language, const QByteArray& key, int& exit_code) {
    std::string text;
    int error = 0;
    const int result = language.dvc_pnl_rmg_get_message_data(key.constData(), text, error);
    exit_code = result == DVC_PNL_RMG_RESULT_IO_ERROR ? EXIT_SERVICE : EXIT_NOT_FOUND;
    return result == DVC_PNL_RMG_RESULT_OK;
}

class message_look_up {
public:
    message_look_up(dvc_pnl_rmg_language_resource& language, const std::vector<int>& language_ids)
        : language_(language)
        , language_ids_(language_ids) {}

    /** An entry for each message of a name or text; one that is not found when there is nothing. */
    std::vector<message_entry> find(const QString& key) const {
        DVC_PNL_RMG_IMPL_MESSAGE record = {0, "", 0};
        if (dvc_pnl_common_utility::string_to_int(key.toUtf8().constData(), record.message_id)) {
            message_entry entry{key, key_kind::ID, false, EXIT_NOT_FOUND, record, {}};
            entry.is_found = language_.search_message_element(record, entry.record);
            return {with_texts(entry)};
        }
        const std::vector<message_entry> named = entries_of(key, key_kind::NAME, messages_named(key));
        if (!named.empty()) {
            return named;
        }
        message_entry file;
        file.key = key;
        file.is_found = holds_file(language_, key.toUtf8(), file.exit_code);
        if (file.is_found || file.exit_code == EXIT_SERVICE) {
            return {with_texts(file)};
        }
        const std::vector<message_entry> shown = find_text(key);
        return shown.empty() ? std::vector<message_entry>{file} : shown;
    }

private:
    /** The languages that are asked for come before all others. */
    std::vector<message_entry> find_text(const QString& text) const {
        message_records found = messages_with_text(language_, text, language_ids_);
        if (found.empty()) {
            found = messages_with_text(language_, text, all_language_ids(language_));
        }
        return entries_of(text, key_kind::TEXT, found);
    }

    std::vector<message_entry> entries_of(const QString& key, key_kind kind,
                                          const message_records& records) const {
        std::vector<message_entry> entries;
        for (const DVC_PNL_RMG_IMPL_MESSAGE* record : records) {
            entries.push_back(with_texts({key, kind, true, EXIT_FOUND, *record, {}}));
        }
        return entries;
    }

    message_entry with_texts(message_entry entry) const {
        const QByteArray key = entry.kind == key_kind::DATA_FILE
                                   ? entry.key.toUtf8()
                                   : QByteArray::number(entry.record.message_id);
        for (std::size_t i = 0; entry.is_found && i < language_ids_.size(); ++i) {
            entry.texts.emplace_back(language_ids_[i],
                                     language_.dvc_pnl_rmg_get_message(key.constData(), language_ids_[i]));
        }
        return entry;
    }

    dvc_pnl_rmg_language_resource& language_;
    const std::vector<int>& language_ids_;
};

QJsonObject to_json(const message_entry& entry) {
    QJsonObject object{{QStringLiteral("key"), entry.key}, {QStringLiteral("found"), entry.is_found}};
    if (entry.is_found) {
        object.insert(QStringLiteral("found_by"), QLatin1String(KIND_NAMES[static_cast<int>(entry.kind)]));
    }
    if (entry.is_found && entry.kind != key_kind::DATA_FILE) {
        object.insert(QStringLiteral("id"), entry.record.message_id);
        object.insert(QStringLiteral("name"), QLatin1String(entry.record.message_name));
        object.insert(QStringLiteral("row"), entry.record.message_table_index);
    }
    QJsonArray texts;
    for (const auto& text : entry.texts) {
        texts.append(QJsonObject{{QStringLiteral("language"), text.first},
                                 {QStringLiteral("tag"), QString::fromStdString(language_tag(text.first))},
                                 {QStringLiteral("text"), text.second}});
    }
    object.insert(QStringLiteral("texts"), texts);
    return object;
}

void report_missing(const message_entry& entry) {
    const QString text = entry.kind == key_kind::ID ? QStringLiteral("there is no message %1")
                         : entry.exit_code == EXIT_SERVICE
                             ? QStringLiteral("message data file \"%1\" is empty or cannot be read")
                             : QStringLiteral("there is no message with the name or text, and no message "
                                              "data file, \"%1\"; panelctl messages --filter finds words");
    report_fault(text.arg(entry.key));
}

/** The text alone; for a message that was found by its text what it is called beside. */
void print_entry(const message_entry& entry) {
    if (entry.texts.size() == 1 && entry.kind != key_kind::TEXT) {
        const QString& text = entry.texts.front().second;
        print_line(text);
        if (text.isEmpty()) {
            report_fault(
                QStringLiteral("\"%1\" has no text in language %2")
                    .arg(entry.key, QString::fromStdString(describe_language(entry.texts.front().first))));
        }
        return;
    }
    print_line(entry.kind != key_kind::DATA_FILE
                   ? QStringLiteral("%1  %2  row %3")
                         .arg(entry.record.message_id)
                         .arg(as_one_line(QLatin1String(entry.record.message_name)))
                         .arg(entry.record.message_table_index)
                   : entry.key);
    std::vector<QStringList> rows;
    for (const auto& text : entry.texts) {
        const language_name* name = find_language(text.first);
        rows.push_back({QStringLiteral("%1").arg(text.first, 5), QLatin1String(name ? name->tag : ""),
                        as_one_line(text.second)});
    }
    print_table(rows);
}

void describe_arguments(QCommandLineParser& parser) {
    parser.setApplicationDescription(QStringLiteral(
        "Prints the text of each message. A key is a message id, a message's name, the name of a "
        "message data\nfile, or a whole text; what matches first counts. A name may be that of several "
        "messages.\nWithout an option the text comes in the language in force. A language that is not "
        "known\nfalls back as on the panel."));
    parser.addPositionalArgument(QStringLiteral("key"),
                                 QStringLiteral("Message id, name, data file or text."),
                                 QStringLiteral("KEY..."));
    add_language_options(parser);
}

/** Prints what is found under the keys. @return the exit code */
int show_messages(const message_look_up& look_up, const QStringList& keys, bool as_json) {
    int exit_code = EXIT_FOUND;
    QJsonArray entries;
    for (const QString& key : keys) {
        for (const message_entry& entry : look_up.find(key)) {
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
    if (!choose_languages(parser, COMMAND, session.language(), ids)) {
        return EXIT_USAGE;
    }
    return show_messages(message_look_up(session.language(), ids), parser.positionalArguments(),
                         parser.isSet(QLatin1String(JSON_OPTION)));
}

} // namespace velarion
