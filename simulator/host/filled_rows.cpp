#include "filled_rows.h"

#include "dvc_pnl_rmg_language_resource.h"
#include "dvc_pnl_rmg_message_table.h"
#include "dvc_pnl_rmg_property.h"

#include <QFile>
#include <QFileInfo>

#include <algorithm>

namespace velarion {

namespace {

constexpr char LIST[] = "panel/attr/filled_rows.txt";
constexpr int SAMPLE = 200; ///< messages that tell a pack's letters

dvc_pnl_rmg_language_resource& language() {
    return *dvc_pnl_rmg_language_resource::dvc_pnl_rmg_get_instance();
}

QString text_of(int message_id, int language_id) {
    return language().dvc_pnl_rmg_get_message(QByteArray::number(message_id).constData(), language_id);
}

bool is_foreign_letter(QChar character) {
    return character.isLetter() && character.script() != QChar::Script_Latin;
}

bool has_foreign_letters(int language_id) {
    const int count = std::min(SAMPLE, dvc_pnl_rmg_imple_message_table_size);
    for (int i = 0; i < count; ++i) {
        const QString text = text_of(dvc_pnl_rmg_impl_message_table[i].message_id, language_id);
        if (std::any_of(text.begin(), text.end(), is_foreign_letter)) {
            return true;
        }
    }
    return false;
}

std::set<int> read_rows(const QString& path) {
    std::set<int> rows;
    QFile file(path);
    if (file.open(QIODevice::ReadOnly)) {
        for (const QByteArray& line : file.readAll().split('\n')) {
            bool is_row = false;
            const int row = line.trimmed().toInt(&is_row);
            if (is_row) {
                rows.insert(row);
            }
        }
    }
    return rows;
}

/** The English text of a row; empty for a row that there is not. */
QString english_text(int row) {
    if (row < 0 || row >= DVC_PNL_RMG_STANDARD_MESSAGE_ROWS) {
        return {};
    }
    const int english =
        language().dvc_pnl_rmg_get_standard_language_index(DVC_PNL_RMG_PROPERTY::LANGUAGE_ID_ENGLISH);
    return QString::fromUtf8(standard_language_message_table[row][english]);
}

} // namespace

const filled_rows::pack_rows& filled_rows::rows_of(int language_id) const {
    std::string folder;
    language().dvc_pnl_rmg_get_option_language_path(language_id, folder);
    const QFileInfo list(QString::fromStdString(folder) + QLatin1String(LIST));
    const QDateTime changed = list.isFile() ? list.lastModified() : QDateTime();
    const auto known = packs_.find(language_id);
    if (known != packs_.end() && known->second.changed == changed) {
        return known->second;
    }
    pack_rows& pack = packs_[language_id];
    pack.changed = changed;
    pack.rows = changed.isValid() ? read_rows(list.filePath()) : std::set<int>();
    pack.has_other_letters = !changed.isValid() && has_foreign_letters(language_id);
    return pack;
}

bool filled_rows::contains(int language_id, int row, const QString& text) const {
    if (std::none_of(text.begin(), text.end(), [](QChar character) { return character.isLetter(); })) {
        return false;
    }
    const pack_rows& pack = rows_of(language_id);
    return pack.changed.isValid() ? pack.rows.count(row) != 0
                                  : pack.has_other_letters && text == english_text(row);
}

} // namespace velarion
