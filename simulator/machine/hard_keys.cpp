#include "hard_keys.h"

namespace velarion {

const std::vector<hard_key>& hard_keys() {
    static const std::vector<hard_key> keys = {
        {KEY_DIGIT_0, "0", "", ""},
        {1, "1", "", ""},
        {2, "2", "", ""},
        {3, "3", "", ""},
        {4, "4", "", ""},
        {5, "5", "", ""},
        {6, "6", "", ""},
        {7, "7", "", ""},
        {8, "8", "", ""},
        {KEY_DIGIT_9, "9", "", ""},
        {KEY_ASTERISK, "asterisk", "", ""},
        {KEY_HASH, "hash", "", ""},
        {KEY_START, "start", "32", "4095"},
        {KEY_STOP, "stop", "33", "4096"},
        {KEY_CLEAR, "clear", "35", "4084"},
        {KEY_RESET, "reset", "34", "4092"},
        {KEY_ENERGY_SAVER, "energy_saver", "173", "24"},
        {KEY_HOME, "home", "15", "3"},
        {KEY_BACK, "back", "28", "30"},
        {KEY_HELP, "help", "12", "12"},
        {KEY_COPY, "copy", "1", "4"},
        {KEY_SCAN, "scan", "3", "5"},
        {KEY_FAX, "fax", "4", "6"},
        {KEY_DOCUMENTS, "documents", "6", "8"},
        {KEY_STATUS, "status", "8", "10"},
    };
    return keys;
}

const hard_key* find_hard_key(const QString& name) {
    bool is_number = false;
    const int number = name.toInt(&is_number);
    for (const hard_key& key : hard_keys()) {
        if (is_number ? key.number == number : name == QLatin1String(key.name)) {
            return &key;
        }
    }
    return nullptr;
}

QString written_by_key(int key) {
    if (is_digit_key(key)) {
        return QString::number(key);
    }
    return key == KEY_ASTERISK ? QStringLiteral("*") : key == KEY_HASH ? QStringLiteral("#") : QString();
}

} // namespace velarion
