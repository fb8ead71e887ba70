#include "command.h"

#include "command_line.h"
#include "display.h"
#include "dvc_pnl_rmg_language_resource.h"
#include "panel_session.h"

#include <QFont>
#include <QFontInfo>
#include <QJsonObject>

namespace velarion {

namespace {

const QString FONT_COMMAND = QStringLiteral("font");
const QString ATTRIBUTE_COMMAND = QStringLiteral("attribute");

/** What a language is shown in. */
struct language_font {
    QString family;
    QString shown; ///< the family of this workstation in its place
    int point_size = 0;
    const char* name = nullptr; ///< as the library names the font; null when it does not
};

language_font read_font(dvc_pnl_rmg_language_resource& language, int language_id) {
    const QFont font = language.dvc_pnl_rmg_get_font(language_id);
    return {font.family(), QFontInfo(font).family(), font.pointSize(),
            language.dvc_pnl_rmg_get_font_name(language_id)};
}

QJsonObject to_json(const language_font& font, int language_id) {
    return {{QStringLiteral("language"), language_id},
            {QStringLiteral("family"), font.family},
            {QStringLiteral("shown_as"), font.shown},
            {QStringLiteral("point_size"), font.point_size},
            {QStringLiteral("name"), font.name ? QJsonValue(QString::fromUtf8(font.name)) : QJsonValue()}};
}

QString describe_font(const language_font& font) {
    return QStringLiteral("%1, %2 points%3")
        .arg(font.family)
        .arg(font.point_size)
        .arg(font.shown == font.family ? QString() : QStringLiteral(" (shown as %1)").arg(font.shown));
}

/** Reads the one word. @return false after a fault, which is reported */
bool read_attribute_number(const QCommandLineParser& parser, int& attribute) {
    bool is_number = false;
    attribute = parser.positionalArguments().value(0).toInt(&is_number);
    if (parser.positionalArguments().size() != 1 || !is_number) {
        usage_fault(ATTRIBUTE_COMMAND, QStringLiteral("takes one attribute number"));
        return false;
    }
    return true;
}

int show_attribute(dvc_pnl_rmg_language_resource& language, int language_id, int attribute, bool as_json) {
    int value = 0;
    const bool is_read = language.dvc_pnl_rmg_get_language_attribute(language_id, attribute, value);
    if (as_json) {
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
    const language_font font = read_font(session.language(), language_id);
    if (parser.isSet(QLatin1String(JSON_OPTION))) {
        print_json(QJsonDocument(to_json(font, language_id)));
    } else {
        print_line(describe_font(font));
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
    int attribute = 0;
    if (!read_attribute_number(parser, attribute)) {
        return EXIT_USAGE;
    }
    panel_session session;
    int language_id = 0;
    if (!read_language_option(parser, ATTRIBUTE_COMMAND, session.language(), language_id)) {
        return EXIT_USAGE;
    }
    return show_attribute(session.language(), language_id, attribute,
                          parser.isSet(QLatin1String(JSON_OPTION)));
}

} // namespace velarion
