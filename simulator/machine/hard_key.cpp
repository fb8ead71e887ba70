#include "hard_key.h"

namespace velarion {

const std::vector<hard_key_entry>& hard_keys() {
    static const std::vector<hard_key_entry> keys = {{0, "0", "0"},
                                                     {1, "1", "1"},
                                                     {2, "2", "2"},
                                                     {3, "3", "3"},
                                                     {4, "4", "4"},
                                                     {5, "5", "5"},
                                                     {6, "6", "6"},
                                                     {7, "7", "7"},
                                                     {8, "8", "8"},
                                                     {9, "9", "9"},
                                                     {KEY_STAR, "star", "*"},
                                                     {KEY_HASH, "hash", "#"},
                                                     {KEY_CLEAR, "clear", "Clear"},
                                                     {KEY_RESET, "reset", "Reset"},
                                                     {KEY_STOP, "stop", "Stop"},
                                                     {KEY_START, "start", "Start"},
                                                     {KEY_HOME, "home", "Home"},
                                                     {KEY_ENERGY_SAVER, "energy_saver", "Energy Saver"},
                                                     {KEY_BACK, "back", "Back"},
                                                     {KEY_HELP, "help", "Help"},
                                                     {KEY_COPY, "copy", "Copy"},
                                                     {KEY_SCAN, "scan", "Scan"},
                                                     {KEY_FAX, "fax", "Fax"},
                                                     {KEY_DOCUMENTS, "documents", "Documents"},
                                                     {KEY_STATUS, "status", "Status"}};
    return keys;
}

bool find_hard_key(const QString& name, int& key) {
    for (const hard_key_entry& entry : hard_keys()) {
        if (name == QLatin1String(entry.name) || name == QString::number(entry.key)) {
            key = entry.key;
            return true;
        }
    }
    return false;
}

QString sign_of_key(int key) {
    if (is_digit_key(key)) {
        return QString::number(key);
    }
    return key == KEY_STAR ? QStringLiteral("*") : key == KEY_HASH ? QStringLiteral("#") : QString();
}

} // namespace velarion
