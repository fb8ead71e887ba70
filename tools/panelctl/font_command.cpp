#include "command.h"

#include "command_line.h"
#include "display.h"
#include "dvc_pnl_rmg_language_resource.h"
#include "panel_session.h"

#include <QFont>
#include <QFontInfo>
#include <QJsonObject>

namespace {

const QString FONT_COMMAND = QStringLiteral("font");
const QString ATTRIBUTE_COMMAND = QStringLiteral("attribute");

const QCommandLineOption& language_option() {
    static const QCommandLineOption option(QStringLiteral("language"),
                                           QStringLiteral("Language id; default: the language in force."),
                                           QStringLiteral("N"));
    return option;
}

} // namespace

int run_font_command(const QStringList& arguments) {
    QCommandLineParser parser;
    parser.setApplicationDescription(
        QStringLiteral("Prints the font of a language: its family, what this workstation shows instead when "
                       "it lacks\nthe family, and its size. An unknown language has the font of English."));
    parser.addOption(language_option());
    int exit_code = EXIT_FOUND;
    if (!read_options(parser, FONT_COMMAND, arguments, exit_code)) {
        return exit_code;
    }
    panel_session session;
    int language_id = 0;
    if (!read_language_option(parser, FONT_COMMAND, session.language(), language_id)) {
        return EXIT_USAGE;
    }
    const QFont font = session.language().dvc_pnl_rmg_get_font(language_id);
    const char* name = session.language().dvc_pnl_rmg_get_font_name(language_id);
    const QString shown = QFontInfo(font).family();
    if (parser.isSet(QLatin1String(JSON_OPTION))) {
        QJsonObject object{{QStringLiteral("language"), language_id},
                           {QStringLiteral("family"), font.family()},
                           {QStringLiteral("shown_as"), shown},
                           {QStringLiteral("point_size"), font.pointSize()}};
        object.insert(QStringLiteral("name"),
                      name == nullptr ? QJsonValue() : QJsonValue(QString::fromUtf8(name)));
        print_json(QJsonDocument(object));
    } else {
        print_line(
            QStringLiteral("%1, %2 points%3")
                .arg(font.family())
                .arg(font.pointSize())
                .arg(shown == font.family() ? QString() : QStringLiteral(" (shown as %1)").arg(shown)));
    }
    return EXIT_FOUND;
}

int run_attribute_command(const QStringList& arguments) {
    QCommandLineParser parser;
    parser.setApplicationDescription(QStringLiteral("Prints whether an attribute of a language is set, 1 or "
                                                    "0. \"panelctl settings set-attribute\" sets it."));
    parser.addPositionalArgument(QStringLiteral("number"), QStringLiteral("Attribute number."),
                                 QStringLiteral("NUMBER"));
    parser.addOption(language_option());
    int exit_code = EXIT_FOUND;
    if (!read_arguments(parser, ATTRIBUTE_COMMAND, arguments, exit_code)) {
        return exit_code;
    }
    bool is_number = false;
    const int attribute = parser.positionalArguments().value(0).toInt(&is_number);
    if (parser.positionalArguments().size() != 1 || !is_number) {
        return usage_fault(ATTRIBUTE_COMMAND, QStringLiteral("takes one attribute number"));
    }
    panel_session session;
    int language_id = 0;
    if (!read_language_option(parser, ATTRIBUTE_COMMAND, session.language(), language_id)) {
        return EXIT_USAGE;
    }
    int value = 0;
    const bool is_read = session.language().dvc_pnl_rmg_get_language_attribute(language_id, attribute, value);
    if (parser.isSet(QLatin1String(JSON_OPTION))) {
        print_json(QJsonDocument(QJsonObject{{QStringLiteral("language"), language_id},
                                             {QStringLiteral("attribute"), attribute},
                                             {QStringLiteral("found"), is_read},
                                             {QStringLiteral("value"), value}}));
    } else if (is_read) {
        print_line(QString::number(value));
    } else {
        report_fault(QStringLiteral("language %1 has no attribute %2").arg(language_id).arg(attribute));
    }
    return is_read ? EXIT_FOUND : EXIT_NOT_FOUND;
}
