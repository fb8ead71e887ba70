#ifndef SUPPLIES_H
#define SUPPLIES_H

namespace velarion {

enum class paper_size { A3, A4, A5, B4, B5, LETTER };
enum class paper_kind { PLAIN, RECYCLED, THICK, LETTERHEAD, LABELS, ENVELOPE };

constexpr int BYPASS_TRAY = 5; ///< its number

struct paper_tray {
    int number; ///< 1 to 4, or BYPASS_TRAY
    paper_size size;
    paper_kind kind;
    int sheets;
    int capacity;
    int percent() const { return sheets * 100 / capacity; }
};

enum class toner_color { BLACK, CYAN, MAGENTA, YELLOW };

struct toner_bottle {
    toner_color color;
    int percent;
};

} // namespace velarion

#endif
