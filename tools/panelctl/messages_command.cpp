#include "command.h"

#include "command_line.h"
#include "display.h"
#include "language_names.h"
#include "message_query.h"
#include "panel_session.h"
#include "text_search.h"

#include <QJsonArray>
#include <QJsonObject>

namespace velarion {

namespace {

const QString COMMAND = QStringLiteral("messages");

/** A message with its text in one language. */
struct listed_text {
    const DVC_PNL_RMG_IMPL_MESSAGE* message;
    int language_id;
    QString text;
};

std::vector<listed_text> find_texts(dvc_pnl_rmg_language_resource& language, const QString& words,
                                    bool ignores_accents, const std::vector<int>& language_ids) {
    const text_search search = text_search::of_words(words, ignores_accents);
    std::vector<listed_text> found;
    for (const DVC_PNL_RMG_IMPL_MESSAGE* message : all_messages()) {
        for (const int id : language_ids) {
            const QString text = text_of(language, *message, id);
            if (words == QString::number(message->message_id) ||
                search.is_in_any({QLatin1String(message->message_name), text})) {
                found.push_back({message, id, text});
            }
        }
    }
    return found;
}

void print_texts_as_json(const std::vector<listed_text>& texts) {
    QJsonArray rows;
    for (const listed_text& each : texts) {
        rows.append(
            QJsonObject{{QStringLiteral("id"), each.message->message_id},
                        {QStringLiteral("name"), QLatin1String(each.message->message_name)},
                        {QStringLiteral("row"), each.message->message_table_index},
                        {QStringLiteral("language"), each.language_id},
                        {QStringLiteral("tag"), QString::fromStdString(language_tag(each.language_id))},
                        {QStringLiteral("text"), each.text}});
    }
    print_json(QJsonDocument(rows));
}

void print_texts(const std::vector<listed_text>& texts) {
    std::vector<QStringList> rows;
    for (const listed_text& each : texts) {
        rows.push_back({QString::number(each.message->message_id),
                        as_one_line(QLatin1String(each.message->message_name)),
                        QString::number(each.message->message_table_index),
                        QString::fromStdString(language_tag(each.language_id)), as_one_line(each.text)});
    }
    print_table(rows);
}

} // namespace

int run_messages_command(const QStringList& arguments) {
    QCommandLineParser parser;
    parser.setApplicationDescription(QStringLiteral(
        "Lists the messages of the panel: id, name, row, language, text. Without an option the text "
        "comes in the\nlanguage in force. Ends with 1 when no message matches the filter."));
    add_language_options(parser);
    parser.addOptions({
        {QStringLiteral("filter"),
         QStringLiteral("Only the message with the id, or those in whose name and text all words occur, in "
                        "any letter case."),
         QStringLiteral("WORDS")},
        {QStringLiteral("fold"), QStringLiteral("Ignores accents: \"eleve\" finds \"\u00E9l\u00E8ve\".")},
    });
    int exit_code = EXIT_FOUND;
    if (!read_options(parser, COMMAND, arguments, exit_code)) {
        return exit_code;
    }
    panel_session session;
    std::vector<int> language_ids;
    if (!choose_languages(parser, COMMAND, session.language(), language_ids)) {
        return EXIT_USAGE;
    }
    const QString words = parser.value(QStringLiteral("filter"));
    const std::vector<listed_text> texts =
        find_texts(session.language(), words, parser.isSet(QStringLiteral("fold")), language_ids);
    if (texts.empty()) {
        report_fault(QStringLiteral("no message's id, name or text matches \"%1\"").arg(words));
    }
    if (parser.isSet(QLatin1String(JSON_OPTION))) {
        print_texts_as_json(texts);
    } else {
        print_texts(texts);
    }
    return texts.empty() ? EXIT_NOT_FOUND : EXIT_FOUND;
}

} // namespace velarion
