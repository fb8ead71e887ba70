#include "command.h"

#include "command_line.h"
#include "display.h"
#include "dvc_pnl_rmg_image_resource_xml_handler.h"
#include "dvc_pnl_rmg_language_resource_xml_handler.h"
#include "dvc_pnl_rmg_xml_parameter.h"
#include "dvc_pnl_rmg_xml_perform.h"
#include "dvc_pnl_utl_xml_parameter_handler.h"

#include <QFile>
#include <QJsonArray>
#include <QJsonObject>
#include <QXmlAttributes>

#pragma GCC diagnostic ignored "-Wdeprecated-declarations" // the library's SAX reader

namespace velarion {

namespace {

const QString XML_COMMAND = QStringLiteral("xml");
const QString STRINGS_COMMAND = QStringLiteral("strings");
constexpr int RESULT_READ = 1;

/** Reads a file; what is wrong with its contents stands on standard error already, from the library. */
bool read_document(dvc_pnl_utl_xml_parameter_handler& events, dvc_pnl_utl_xml_handler_base& document,
                   const QString& path) {
    const QByteArray name = QFile::encodeName(path);
    if (events.dvc_pnl_utl_execute(&document, name.constData()) == RESULT_READ) {
        return true;
    }
    report_fault(QFile::exists(path) ? QStringLiteral("%1: is not wholly read").arg(path)
                                     : QStringLiteral("%1: there is no such file").arg(path));
    return false;
}

template <typename HANDLER> bool collect(const QStringList& paths, dvc_pnl_rmg_xml_parameter& collector) {
    bool is_complete = true;
    HANDLER handler(&collector);
    for (const QString& path : paths) {
        dvc_pnl_utl_xml_parameter_handler events;
        is_complete = read_document(events, handler, path) && is_complete;
    }
    return is_complete;
}

QString from_utf8(const std::string& text) {
    return QString::fromUtf8(text.data(), static_cast<int>(text.size()));
}

QString shown(int index) {
    return QString::number(index);
}

QString shown(const std::string& text) {
    return as_one_line(from_utf8(text));
}

QJsonValue to_json(int index) {
    return index;
}

QJsonValue to_json(const std::string& text) {
    return from_utf8(text);
}

template <typename VALUE>
void print_map(const std::map<std::string, VALUE>& contents, bool is_complete, bool as_json) {
    if (as_json) {
        QJsonObject entries;
        for (const auto& entry : contents) {
            entries.insert(from_utf8(entry.first), to_json(entry.second));
        }
        print_json(QJsonDocument(
            QJsonObject{{QStringLiteral("complete"), is_complete}, {QStringLiteral("entries"), entries}}));
        return;
    }
    std::vector<QStringList> rows;
    rows.reserve(contents.size());
    for (const auto& entry : contents) {
        rows.push_back({as_one_line(from_utf8(entry.first)), shown(entry.second)});
    }
    print_table(rows);
}

/** @return whether all of the documents was read */
bool show_messages(const QStringList& paths, bool as_json) {
    dvc_pnl_rmg_xml_parameter collector;
    const bool is_complete = collect<dvc_pnl_rmg_language_resource_xml_handler>(paths, collector);
    std::map<std::string, int> contents;
    collector.dvc_pnl_rmg_xml_set_language_contens(contents);
    print_map(contents, is_complete, as_json);
    return is_complete;
}

/** @return whether all of the documents was read */
bool show_images(const QStringList& paths, bool as_json) {
    dvc_pnl_rmg_xml_parameter collector;
    const bool is_complete = collect<dvc_pnl_rmg_image_resource_xml_handler>(paths, collector);
    std::map<std::string, std::string> contents;
    collector.dvc_pnl_rmg_xml_set_image_contens(contents);
    print_map(contents, is_complete, as_json);
    return is_complete;
}

/** Brings the elements of a document, with their attributes, to a string collector. */
class string_document : public dvc_pnl_utl_xml_parameter_handler, public dvc_pnl_utl_xml_handler_base {
public:
    explicit string_document(dvc_pnl_rmg_xml_perform& strings)
        : strings_(strings) {}

    bool startElement(const QString& namespace_uri, const QString& local_name, const QString& name,
                      const QXmlAttributes& attributes) override {
        std::map<std::string, std::string> values;
        for (int i = 0; i < attributes.count(); ++i) {
            values[attributes.qName(i).toStdString()] = attributes.value(i).toStdString();
        }
        strings_.dvc_pnl_rmg_start_element(name.toStdString(), values);
        return dvc_pnl_utl_xml_parameter_handler::startElement(namespace_uri, local_name, name, attributes);
    }
    int dvc_pnl_utl_start_element(const std::string&) override { return 1; }
    int dvc_pnl_utl_end_element(const std::string& name, const std::string& text) override {
        return strings_.dvc_pnl_rmg_end_element(name, text);
    }

private:
    dvc_pnl_rmg_xml_perform& strings_;
};

/** @return whether the document has the string; @p text then receives it */
bool find_string(dvc_pnl_rmg_xml_perform& strings, const QString& id, QString& text) {
    std::string key = id.toStdString();
    std::string first = "a";
    std::string second = "b";
    strings.setMessageID(key);
    strings.getMessage(first); // what is not there leaves both as they were
    strings.getMessage(second);
    text = from_utf8(first);
    return first == second;
}

/** Prints the texts of a document that have these names. @return the exit code */
int show_strings(const QString& file, const QStringList& names, bool as_json) {
    dvc_pnl_rmg_xml_perform strings;
    string_document document(strings);
    int exit_code = read_document(document, document, file) ? EXIT_FOUND : EXIT_SERVICE;
    QJsonObject texts;
    for (const QString& name : names) {
        QString text;
        if (find_string(strings, name, text)) {
            texts.insert(name, text);
            if (!as_json) {
                print_line(text);
            }
        } else {
            report_fault(QStringLiteral("there is no string \"%1\"").arg(name));
            exit_code = exit_code == EXIT_FOUND ? EXIT_NOT_FOUND : exit_code;
        }
    }
    if (as_json) {
        print_json(QJsonDocument(texts));
    }
    return exit_code;
}

} // namespace

int run_xml_command(const QStringList& arguments) {
    QCommandLineParser parser;
    parser.setApplicationDescription(
        QStringLiteral("Prints what message documents (message table index by implementation id) or image "
                       "documents\n(file name by implementation file name) hold together; the first value of "
                       "a key stays."));
    parser.addPositionalArgument(QStringLiteral("kind"), QStringLiteral("messages or images."),
                                 QStringLiteral("messages|images"));
    parser.addPositionalArgument(QStringLiteral("file"), QStringLiteral("XML file."),
                                 QStringLiteral("FILE..."));
    int exit_code = EXIT_FOUND;
    if (!read_arguments(parser, XML_COMMAND, arguments, exit_code)) {
        return exit_code;
    }
    QStringList words = parser.positionalArguments();
    const QString kind = words.isEmpty() ? QString() : words.takeFirst();
    const bool is_messages = kind == QLatin1String("messages");
    if ((!is_messages && kind != QLatin1String("images")) || words.isEmpty()) {
        return usage_fault(XML_COMMAND, QStringLiteral("takes \"messages\" or \"images\" and files"));
    }
    const bool as_json = parser.isSet(QLatin1String(JSON_OPTION));
    const bool is_complete = is_messages ? show_messages(words, as_json) : show_images(words, as_json);
    return is_complete ? EXIT_FOUND : EXIT_SERVICE;
}

int run_strings_command(const QStringList& arguments) {
    QCommandLineParser parser;
    parser.setApplicationDescription(QStringLiteral(
        "Prints texts of a string document, <string name=\"ID\">text</string>, by their names."));
    parser.addPositionalArgument(QStringLiteral("file"), QStringLiteral("XML file."), QStringLiteral("FILE"));
    parser.addPositionalArgument(QStringLiteral("id"), QStringLiteral("Name of a string."),
                                 QStringLiteral("ID..."));
    int exit_code = EXIT_FOUND;
    if (!read_arguments(parser, STRINGS_COMMAND, arguments, exit_code)) {
        return exit_code;
    }
    QStringList words = parser.positionalArguments();
    if (words.size() < 2) {
        return usage_fault(STRINGS_COMMAND, QStringLiteral("takes a file and the names of strings"));
    }
    const QString file = words.takeFirst();
    return show_strings(file, words, parser.isSet(QLatin1String(JSON_OPTION)));
}

} // namespace velarion
