#ifndef FILLED_ROWS_H
#define FILLED_ROWS_H

#include <QDateTime>
#include <QString>

#include <map>
#include <set>

namespace velarion {

/** Tells which rows of packs show English because the pack has no text of its own. GUI thread only. */
class filled_rows {
public:
    /**
     * Whether the build of a pack filled a row, by the list that it left in the pack's folder. Without the
     * list, a text that equals the English one counts in a pack whose language has other letters.
     *
     * @param text  of the row in the pack
     * @return false for a text without a letter: it needs no translation
     */
    bool contains(int language_id, int row, const QString& text) const;

private:
    struct pack_rows {
        QDateTime changed; ///< of the list; invalid: there is none
        std::set<int> rows;
        bool has_other_letters = false;
    };

    const pack_rows& rows_of(int language_id) const;

    mutable std::map<int, pack_rows> packs_;
};

} // namespace velarion

#endif
