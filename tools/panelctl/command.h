#ifndef COMMAND_H
#define COMMAND_H

#include <QStringList>

namespace velarion {

/** One command: what it is called, and what it does with the words behind its name. */
struct panelctl_command {
    const char* name;
    const char* summary;
    int (*run)(const QStringList& arguments);
};

int run_message_command(const QStringList& arguments);
int run_messages_command(const QStringList& arguments);
int run_languages_command(const QStringList& arguments);
int run_packs_command(const QStringList& arguments);
int run_settings_command(const QStringList& arguments);
int run_units_command(const QStringList& arguments);
int run_font_command(const QStringList& arguments);
int run_attribute_command(const QStringList& arguments);
int run_keyboard_command(const QStringList& arguments);
int run_xml_command(const QStringList& arguments);
int run_strings_command(const QStringList& arguments);
int run_image_command(const QStringList& arguments);
int run_images_command(const QStringList& arguments);
int run_sheet_command(const QStringList& arguments);
int run_data_command(const QStringList& arguments);
int run_led_command(const QStringList& arguments);
int run_key_command(const QStringList& arguments);
int run_monitor_command(const QStringList& arguments);
int run_service_command(const QStringList& arguments);

} // namespace velarion

#endif
