#include "command_line.h"

#include "display.h"
#include "dvc_pnl_rmg_language_resource.h"
#include "language_names.h"

#include <QCoreApplication>

#include <algorithm>
#include <cstdio>
#include <limits>

namespace velarion {

void report_fault(const QString& text) {
    std::fprintf(stderr, "panelctl: %s\n", text.toUtf8().constData());
}

int usage_fault(const QString& command, const QString& fault) {
    report_fault(QStringLiteral("%1; see panelctl %2 --help").arg(fault, command));
    return EXIT_USAGE;
}

bool read_arguments(QCommandLineParser& parser, const QString& command, const QStringList& arguments,
                    int& exit_code) {
    const QCommandLineOption help(QStringList{QStringLiteral("h"), QStringLiteral("help")},
                                  QStringLiteral("Shows this help."));
    parser.addOption(help);
    parser.addOption({QLatin1String(JSON_OPTION), QStringLiteral("Prints JSON.")});
    if (!parser.parse(QStringList{QStringLiteral("panelctl ") + command} + arguments)) {
        exit_code = usage_fault(command, parser.errorText());
        return false;
    }
    if (parser.isSet(help)) {
        const QString usage = QStringLiteral("Usage: ");
        QString text = parser.helpText();
        text.replace(usage + QCoreApplication::arguments().at(0),
                     usage + QStringLiteral("panelctl ") + command);
        print_line(text.trimmed());
        exit_code = EXIT_FOUND;
        return false;
    }
    return true;
}

bool read_options(QCommandLineParser& parser, const QString& command, const QStringList& arguments,
                  int& exit_code) {
    if (!read_arguments(parser, command, arguments, exit_code)) {
        return false;
    }
    const QStringList words = parser.positionalArguments();
    if (!words.isEmpty()) {
        exit_code = usage_fault(command, QStringLiteral("unexpected \"%1\"").arg(words.first()));
    }
    return words.isEmpty();
}

bool read_number(const QString& command, const QString& text, qint64& number) {
    bool is_number = false;
    number = text.toLongLong(&is_number, text.startsWith(QLatin1String("0x")) ? 16 : 10);
    if (!is_number) {
        usage_fault(command, QStringLiteral("\"%1\" is not a whole number").arg(text));
    }
    return is_number;
}

bool read_number(const QString& command, const QString& text, int& number) {
    qint64 value = 0;
    if (!read_number(command, text, value)) {
        return false;
    }
    if (value < std::numeric_limits<int>::min() || value > std::numeric_limits<int>::max()) {
        usage_fault(command, QStringLiteral("\"%1\" does not fit into 32 bits").arg(text));
        return false;
    }
    number = static_cast<int>(value);
    return true;
}

QCommandLineOption language_option() {
    return {QStringLiteral("language"),
            QStringLiteral("Language: %1; default: the language in force.")
                .arg(QString::fromStdString(known_languages())),
            QStringLiteral("LANGUAGE")};
}

bool read_language_word(const QString& command, const QString& what, const QString& word, int& language_id) {
    if (read_language(word.toUtf8().constData(), language_id)) {
        return true;
    }
    usage_fault(command, QStringLiteral("%1 \"%2\" is no language; take %3")
                             .arg(what, word, QString::fromStdString(known_languages())));
    return false;
}

bool read_language_option(const QCommandLineParser& parser, const QString& command,
                          dvc_pnl_rmg_language_resource& language, int& language_id) {
    const QString option = QStringLiteral("language");
    if (!parser.isSet(option)) {
        language_id = language.dvc_pnl_rmg_get_language_id();
        return true;
    }
    return read_language_word(command, QStringLiteral("--language"), parser.value(option), language_id);
}

int run_action(const QCommandLineParser& parser, const QString& command, const char* default_action,
               const command_action* actions, std::size_t count) {
    QStringList words = parser.positionalArguments();
    const QString name = words.isEmpty() ? QLatin1String(default_action) : words.takeFirst();
    const command_action* end = actions + count;
    const command_action* action = std::find_if(
        actions, end, [&name](const command_action& each) { return name == QLatin1String(each.name); });
    if (action == end) {
        return usage_fault(command, QStringLiteral("unknown action \"%1\"").arg(name));
    }
    if (words.size() != action->argument_count) {
        return usage_fault(command, QStringLiteral("%1 takes %2 words, not %3")
                                        .arg(name)
                                        .arg(action->argument_count)
                                        .arg(words.size()));
    }
    return action->run(words, parser.isSet(QLatin1String(JSON_OPTION)));
}

} // namespace velarion
