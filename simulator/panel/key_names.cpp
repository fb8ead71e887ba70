#include "key_names.h"

#include "hard_key.h"
#include "panel_view_ids.h"

namespace velarion {

namespace {

struct key_text {
    int key;
    const char* text;
};

constexpr key_text KEYS[] = {
    {KEY_CLEAR, MSG_CMN_CLEAR_TEXT},         {KEY_RESET, MSG_CMN_RESET_TEXT},
    {KEY_STOP, MSG_CMN_STOP_TEXT},           {KEY_START, MSG_CMN_START_TEXT},
    {KEY_HOME, MSG_NORMAL_TITLE_HOME},       {KEY_ENERGY_SAVER, MSG_NORMAL_POWER_ENERGY_SAVER},
    {KEY_BACK, MSG_CMN_BACK_TEXT},           {KEY_HELP, MSG_NORMAL_TITLE_HELP},
    {KEY_COPY, MSG_NORMAL_TITLE_COPY},       {KEY_SCAN, MSG_NORMAL_TITLE_SCAN},
    {KEY_FAX, MSG_NORMAL_TITLE_FAX},         {KEY_DOCUMENTS, MSG_NORMAL_TITLE_DOCUMENT_SERVER},
    {KEY_STATUS, MSG_NORMAL_TITLE_JOB_LIST},
};

} // namespace

message_text name_of_key(int key) {
    for (const key_text& entry : KEYS) {
        if (entry.key == key) {
            return entry.text;
        }
    }
    return message_text::ordered(sign_of_key(key));
}

} // namespace velarion
