#include "command.h"

#include "command_line.h"
#include "display.h"
#include "language_names.h"
#include "platform_codes.h"
#include "settings_database.h"

#include <QJsonArray>
#include <QJsonObject>

namespace velarion {

namespace {

const QString COMMAND = QStringLiteral("settings");

int report_failure(int code, const std::string& fault) {
    report_fault(QString::fromUtf8(fault.c_str()));
    switch (code) {
    case PLATFORM_UNKNOWN_ITEM:
    case PLATFORM_NOT_FOUND:
        return EXIT_NOT_FOUND;
    case PLATFORM_OUT_OF_RANGE:
        return EXIT_USAGE;
    default:
        return EXIT_SERVICE;
    }
}

QString hexadecimal(std::uint32_t number) {
    return QStringLiteral("0x%1").arg(number, 8, 16, QLatin1Char('0'));
}

QJsonObject to_json(const device_setting& setting) {
    return {{QStringLiteral("group"), hexadecimal(setting.group)},
            {QStringLiteral("item"), hexadecimal(setting.item)},
            {QStringLiteral("name"), QString::fromUtf8(setting.name.c_str())},
            {QStringLiteral("width"), setting.width},
            {QStringLiteral("value"), static_cast<qint64>(setting.value)},
            {QStringLiteral("stored"), setting.is_stored}};
}

QStringList to_row(const device_setting& setting) {
    return {QString::fromUtf8(setting.name.c_str()), QString::number(setting.value),
            setting.is_stored ? QStringLiteral("stored") : QStringLiteral("default"),
            QStringLiteral("%1 bits").arg(setting.width),
            hexadecimal(setting.group) + QLatin1Char(':') + hexadecimal(setting.item)};
}

QJsonObject to_json(const language_attribute& attribute) {
    return {{QStringLiteral("language"), attribute.language_id},
            {QStringLiteral("attribute"), attribute.attribute},
            {QStringLiteral("text"), QString::fromUtf8(attribute.text.c_str())}};
}

void print_list_as_json(const std::string& file, const std::vector<device_setting>& settings,
                        const std::vector<language_attribute>& attributes) {
    QJsonArray settings_as_json;
    for (const device_setting& setting : settings) {
        settings_as_json.append(to_json(setting));
    }
    QJsonArray attributes_as_json;
    for (const language_attribute& attribute : attributes) {
        attributes_as_json.append(to_json(attribute));
    }
    print_json(QJsonDocument(QJsonObject{{QStringLiteral("file"), QString::fromUtf8(file.c_str())},
                                         {QStringLiteral("settings"), settings_as_json},
                                         {QStringLiteral("attributes"), attributes_as_json}}));
}

void print_list(const std::vector<device_setting>& settings,
                const std::vector<language_attribute>& attributes) {
    std::vector<QStringList> rows;
    for (const device_setting& setting : settings) {
        rows.push_back(to_row(setting));
    }
    for (const language_attribute& attribute : attributes) {
        rows.push_back({QStringLiteral("attribute %1 of language %2")
                            .arg(attribute.attribute)
                            .arg(attribute.language_id),
                        QString::fromUtf8(attribute.text.c_str())});
    }
    print_table(rows);
}

int list_settings(const QStringList&, bool as_json) {
    settings_database database;
    std::vector<device_setting> settings;
    std::vector<language_attribute> attributes;
    std::string fault;
    platform_code code = database.list(settings, fault);
    if (code == PLATFORM_OK) {
        code = database.list_attributes(attributes, fault);
    }
    if (code != PLATFORM_OK) {
        return report_failure(code, fault);
    }
    if (as_json) {
        print_list_as_json(database.file(), settings, attributes);
    } else {
        print_list(settings, attributes);
    }
    return EXIT_FOUND;
}

int get_setting(const QStringList& arguments, bool as_json) {
    settings_database database;
    device_setting setting;
    std::string fault;
    const int code = database.find(arguments.at(0).toUtf8().constData(), setting, fault);
    if (code != PLATFORM_OK) {
        return report_failure(code, fault);
    }
    if (as_json) {
        print_json(QJsonDocument(to_json(setting)));
    } else {
        print_line(QString::number(setting.value));
    }
    return EXIT_FOUND;
}

struct setting_value {
    std::string name;
    qint64 value;
};

/** What is to be stored, in this order; a panel language given by its name may take two settings. */
bool read_values(const std::string& name, const QString& word, std::vector<setting_value>& values) {
    const std::string text = word.toUtf8().constData();
    language_selection selection{};
    int language_id = 0;
    qint64 number = 0;
    if (name == "panel_language" && read_selection(text, selection)) {
        if (selection.option_language_id != 0) {
            values.push_back({"panel_option_language", selection.option_language_id});
        }
        values.push_back({name, selection.language_id});
    } else if (name.find("language") != std::string::npos && read_language(text, language_id)) {
        values.push_back({name, language_id});
    } else if (read_number(COMMAND, word, number)) {
        values.push_back({name, number});
    }
    return !values.empty();
}

int set_setting(const QStringList& arguments, bool as_json) {
    settings_database database;
    std::vector<setting_value> values;
    if (!read_values(arguments.at(0).toUtf8().constData(), arguments.at(1), values)) {
        return EXIT_USAGE;
    }
    for (const setting_value& each : values) {
        std::string fault;
        const int code = database.write(each.name, each.value, fault);
        if (code != PLATFORM_OK) {
            return report_failure(code, fault);
        }
    }
    return as_json ? get_setting(arguments, as_json) : EXIT_FOUND;
}

int reset_setting(const QStringList& arguments, bool as_json) {
    settings_database database;
    std::string fault;
    const int code = database.reset(arguments.at(0).toUtf8().constData(), fault);
    if (code != PLATFORM_OK) {
        return report_failure(code, fault);
    }
    return as_json ? get_setting(arguments, as_json) : EXIT_FOUND;
}

bool read_attribute_key(const QStringList& arguments, int& language_id, int& attribute) {
    const bool is_named = read_language(arguments.at(0).toUtf8().constData(), language_id);
    return (is_named || read_number(COMMAND, arguments.at(0), language_id)) &&
           read_number(COMMAND, arguments.at(1), attribute);
}

int get_attribute(const QStringList& arguments, bool as_json) {
    settings_database database;
    language_attribute attribute;
    if (!read_attribute_key(arguments, attribute.language_id, attribute.attribute)) {
        return EXIT_USAGE;
    }
    std::string fault;
    const int code =
        database.get_attribute(attribute.language_id, attribute.attribute, attribute.text, fault);
    if (code != PLATFORM_OK) {
        return report_failure(code, fault);
    }
    if (as_json) {
        print_json(QJsonDocument(to_json(attribute)));
    } else {
        print_line(QString::fromUtf8(attribute.text.c_str()));
    }
    return EXIT_FOUND;
}

int set_attribute(const QStringList& arguments, bool as_json) {
    settings_database database;
    language_attribute attribute;
    if (!read_attribute_key(arguments, attribute.language_id, attribute.attribute)) {
        return EXIT_USAGE;
    }
    attribute.text = arguments.at(2).toUtf8().constData();
    std::string fault;
    const int code = database.set_attribute(attribute, fault);
    if (code != PLATFORM_OK) {
        return report_failure(code, fault);
    }
    return as_json ? get_attribute(arguments, as_json) : EXIT_FOUND;
}

int remove_attribute(const QStringList& arguments, bool) {
    settings_database database;
    int language_id = 0;
    int attribute = 0;
    if (!read_attribute_key(arguments, language_id, attribute)) {
        return EXIT_USAGE;
    }
    std::string fault;
    const int code = database.remove_attribute(language_id, attribute, fault);
    return code == PLATFORM_OK ? EXIT_FOUND : report_failure(code, fault);
}

constexpr command_action ACTIONS[] = {
    {"list", 0, list_settings},
    {"get", 1, get_setting},
    {"set", 2, set_setting},
    {"reset", 1, reset_setting},
    {"get-attribute", 2, get_attribute},
    {"set-attribute", 3, set_attribute},
    {"remove-attribute", 2, remove_attribute},
};

} // namespace

int run_settings_command(const QStringList& arguments) {
    QCommandLineParser parser;
    parser.setApplicationDescription(QStringLiteral(
        "Reads and changes the device settings of this workstation, also while other programs run.\n\n"
        "  list                              all settings and language attributes\n"
        "  get NAME                          one value\n"
        "  set NAME VALUE                    stores a value, decimal or 0x..., or a language as \"de\"\n"
        "                                    (panel_language \"he\" sets panel_option_language too)\n"
        "  reset NAME                        back to the default\n"
        "  get-attribute LANGUAGE NUMBER     the text of a language attribute\n"
        "  set-attribute LANGUAGE NUMBER TEXT\n"
        "  remove-attribute LANGUAGE NUMBER\n\n"
        "LANGUAGE is a number, or a name as \"de\". NAME is a setting's name as \"list\" shows it, or "
        "0xGROUP:0xITEM."));
    parser.addPositionalArgument(QStringLiteral("action"), QStringLiteral("What to do."),
                                 QStringLiteral("ACTION [ARGUMENT...]"));
    int exit_code = EXIT_FOUND;
    if (!read_arguments(parser, COMMAND, arguments, exit_code)) {
        return exit_code;
    }
    return run_action(parser, COMMAND, "list", ACTIONS);
}

} // namespace velarion
