#include "command.h"

#include "command_line.h"
#include "device_tree.h"
#include "display.h"
#include "dvc_pnl_rmg_message_table.h"
#include "dvc_pnl_rmg_option_language_attribute_manager.h"
#include "dvc_pnl_rmg_setting_id.h"
#include "dvc_pnl_rmg_standard_language_attribute_manager.h"
#include "file_guard.h"
#include "osw.h"
#include "panel_session.h"
#include "settings_store.h"

#include <QJsonArray>
#include <QJsonObject>

#include <algorithm>

namespace velarion {

namespace {

using pack_manager = dvc_pnl_rmg_option_language_attribute_manager;

/** What one slot holds. */
struct slot_state {
    int number = 0;
    int language_id = 0;        ///< 0: empty
    bool is_overridden = false; ///< a later slot names the same language
    bool loads = false;
    int row_count = 0;
    int direction = 1;
    QString font_family;
    QString path;
};

bool library_loads(const std::string& path) {
    void* library = nullptr;
    return is_safe_to_load(path.c_str()) && emwOSWLoadLibrary(&library, path.c_str()) == 0 && library;
}

int count_rows(pack_manager& packs, int language_id) {
    int count = 0;
    for (int row = 0; row < DVC_PNL_RMG_STANDARD_MESSAGE_ROWS; ++row) {
        count += packs.dvc_pnl_rmg_get_option_message(row, language_id) ? 1 : 0;
    }
    return count;
}

slot_state read_slot(pack_manager& packs, int number) {
    slot_state slot;
    slot.number = number;
    std::uint16_t language_id = 0;
    ent_set_get_status(SETTING_GROUP, pack_manager::OPTION_LANGUAGE_MEMBER[number - 1], &language_id);
    slot.language_id = language_id;
    if (slot.language_id == 0) {
        return slot;
    }
    int shown_id = 0;
    slot.is_overridden = !packs.dvc_pnl_rmg_convert_opt_lang_no_to_language_id(number, shown_id);
    std::string path;
    packs.get_option_language_path(slot.language_id, path);
    slot.path = QString::fromStdString(path);
    slot.loads = library_loads(path + pack_manager::NAME_LIB_OPT_LANG);
    slot.row_count = count_rows(packs, slot.language_id);
    slot.direction = packs.get_option_language_layout_direction(slot.language_id);
    slot.font_family = QString::fromUtf8(packs.dvc_pnl_rmg_get_option_font_family(slot.language_id));
    return slot;
}

QJsonObject to_json(const slot_state& slot) {
    QJsonObject object{{QStringLiteral("slot"), slot.number}, {QStringLiteral("language"), slot.language_id}};
    if (slot.language_id != 0) {
        object.insert(QStringLiteral("loads"), slot.loads);
        object.insert(QStringLiteral("overridden"), slot.is_overridden);
        object.insert(QStringLiteral("rows"), slot.row_count);
        object.insert(QStringLiteral("right_to_left"), slot.direction == 0);
        object.insert(QStringLiteral("font_family"), slot.font_family);
        object.insert(QStringLiteral("path"), slot.path);
    }
    return object;
}

QStringList to_row(const slot_state& slot) {
    const QString number = QString::number(slot.number);
    if (slot.language_id == 0) {
        return {number, QStringLiteral("-"), QStringLiteral("empty")};
    }
    const QString state = slot.is_overridden ? QStringLiteral("a later slot holds it")
                          : slot.loads       ? QStringLiteral("loads")
                                             : QStringLiteral("does not load");
    return {number,
            QString::number(slot.language_id),
            state,
            QString::number(slot.row_count),
            describe_direction(slot.direction),
            slot.font_family,
            slot.path};
}

std::vector<slot_state> read_slots() {
    const dvc_pnl_rmg_standard_language_attribute_manager font_directory;
    pack_manager packs;
    std::vector<slot_state> states;
    for (int number = 1; number <= pack_manager::OPTION_LANGUAGE_MEMBER_NUM; ++number) {
        states.push_back(read_slot(packs, number));
    }
    return states;
}

void print_slots_as_json(const std::vector<slot_state>& states) {
    QJsonArray states_as_json;
    for (const slot_state& slot : states) {
        states_as_json.append(to_json(slot));
    }
    print_json(QJsonDocument(states_as_json));
}

void print_slots(const std::vector<slot_state>& states) {
    std::vector<QStringList> rows{
        {QStringLiteral("slot"), QStringLiteral("language"), QStringLiteral("state"), QStringLiteral("rows"),
         QStringLiteral("direction"), QStringLiteral("font family"), QStringLiteral("folder")}};
    for (const slot_state& slot : states) {
        rows.push_back(to_row(slot));
    }
    print_table(rows);
}

} // namespace

int run_packs_command(const QStringList& arguments) {
    const QString command = QStringLiteral("packs");
    QCommandLineParser parser;
    parser.setApplicationDescription(QStringLiteral(
        "Lists what the five option language slots hold, whether each pack's library loads, how "
        "many rows\nit has a text for, its writing direction and font family."));
    int exit_code = EXIT_FOUND;
    if (!read_options(parser, command, arguments, exit_code)) {
        return exit_code;
    }
    report_missing_device_tree();
    const font_command_silence silence;
    const std::vector<slot_state> states = read_slots();
    if (parser.isSet(QLatin1String(JSON_OPTION))) {
        print_slots_as_json(states);
    } else {
        print_slots(states);
    }
    const bool is_complete = std::all_of(states.begin(), states.end(), [](const slot_state& slot) {
        return slot.language_id == 0 || slot.loads;
    });
    return is_complete ? EXIT_FOUND : EXIT_NOT_FOUND;
}

} // namespace velarion
