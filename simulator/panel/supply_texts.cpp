#include "supply_texts.h"

#include "panel_view_ids.h"

namespace velarion {

namespace {

/** Full, half full, low, empty; the bypass tray is the last one. */
constexpr const char* TRAY_PICTURES[][4] = {
    {ICON_NORMAL_OTHER_PAPER_TRAY_1_FULL, ICON_NORMAL_OTHER_PAPER_TRAY_1_HALF,
     ICON_NORMAL_OTHER_PAPER_TRAY_1_LOW, ICON_NORMAL_OTHER_PAPER_TRAY_1_EMPTY},
    {ICON_NORMAL_OTHER_PAPER_TRAY_2_FULL, ICON_NORMAL_OTHER_PAPER_TRAY_2_HALF,
     ICON_NORMAL_OTHER_PAPER_TRAY_2_LOW, ICON_NORMAL_OTHER_PAPER_TRAY_2_EMPTY},
    {ICON_NORMAL_OTHER_PAPER_TRAY_3_FULL, ICON_NORMAL_OTHER_PAPER_TRAY_3_HALF,
     ICON_NORMAL_OTHER_PAPER_TRAY_3_LOW, ICON_NORMAL_OTHER_PAPER_TRAY_3_EMPTY},
    {ICON_NORMAL_OTHER_PAPER_TRAY_4_FULL, ICON_NORMAL_OTHER_PAPER_TRAY_4_HALF,
     ICON_NORMAL_OTHER_PAPER_TRAY_4_LOW, ICON_NORMAL_OTHER_PAPER_TRAY_4_EMPTY},
    {ICON_NORMAL_OTHER_PAPER_BYPASS_FULL, ICON_NORMAL_OTHER_PAPER_BYPASS_HALF,
     ICON_NORMAL_OTHER_PAPER_BYPASS_LOW, ICON_NORMAL_OTHER_PAPER_BYPASS_EMPTY},
};

constexpr int HALF = 60; // %, from here downwards
constexpr int LOW = 15;

constexpr const char* SIZES[] = {"A3", "A4", "A5", "B4", "B5", "8½ × 11"};
constexpr const char* KINDS[] = {MSG_NORMAL_TRAY_ITEM_PLAIN_PAPER, MSG_NORMAL_TRAY_ITEM_RECYCLED_PAPER,
                                 MSG_NORMAL_TRAY_ITEM_THICK_PAPER, MSG_NORMAL_TRAY_ITEM_LETTERHEAD,
                                 MSG_NORMAL_TRAY_ITEM_LABELS,      MSG_NORMAL_TRAY_ITEM_ENVELOPE};

/** Of a colour, by tenths from an empty bottle to a full one. */
constexpr const char* TONER_PICTURES[][11] = {
    {ICON_TONER_BLACK00, ICON_TONER_BLACK10, ICON_TONER_BLACK20, ICON_TONER_BLACK30, ICON_TONER_BLACK40,
     ICON_TONER_BLACK50, ICON_TONER_BLACK60, ICON_TONER_BLACK70, ICON_TONER_BLACK80, ICON_TONER_BLACK90,
     ICON_TONER_BLACK100},
    {ICON_TONER_CYAN00, ICON_TONER_CYAN10, ICON_TONER_CYAN20, ICON_TONER_CYAN30, ICON_TONER_CYAN40,
     ICON_TONER_CYAN50, ICON_TONER_CYAN60, ICON_TONER_CYAN70, ICON_TONER_CYAN80, ICON_TONER_CYAN90,
     ICON_TONER_CYAN100},
    {ICON_TONER_MAGENTA00, ICON_TONER_MAGENTA10, ICON_TONER_MAGENTA20, ICON_TONER_MAGENTA30,
     ICON_TONER_MAGENTA40, ICON_TONER_MAGENTA50, ICON_TONER_MAGENTA60, ICON_TONER_MAGENTA70,
     ICON_TONER_MAGENTA80, ICON_TONER_MAGENTA90, ICON_TONER_MAGENTA100},
    {ICON_TONER_YELLOW00, ICON_TONER_YELLOW10, ICON_TONER_YELLOW20, ICON_TONER_YELLOW30, ICON_TONER_YELLOW40,
     ICON_TONER_YELLOW50, ICON_TONER_YELLOW60, ICON_TONER_YELLOW70, ICON_TONER_YELLOW80, ICON_TONER_YELLOW90,
     ICON_TONER_YELLOW100},
};

} // namespace

message_text tray_name(const paper_tray& tray) {
    if (tray.number == BYPASS_TRAY) {
        return MSG_NORMAL_COPY_PAPER_BYPASS;
    }
    return {MSG_NORMAL_COPY_PAPER_TRAY, {QString::number(tray.number)}};
}

message_text paper_kind_name(const paper_tray& tray) {
    return KINDS[static_cast<int>(tray.kind)];
}

message_text paper_size_name(const paper_tray& tray) {
    return message_text::literal(QString::fromUtf8(SIZES[static_cast<int>(tray.size)]));
}

QString tray_picture(const paper_tray& tray) {
    const int percent = tray.percent();
    const int level = percent <= 0 ? 3 : percent <= LOW ? 2 : percent <= HALF ? 1 : 0;
    const int place = tray.number == BYPASS_TRAY ? 4 : tray.number - 1;
    return QLatin1String(TRAY_PICTURES[place][level]);
}

QString toner_picture(const toner_bottle& bottle) {
    const int tenths = bottle.percent <= 0 ? 0 : qMax(1, bottle.percent / 10);
    return QLatin1String(TONER_PICTURES[static_cast<int>(bottle.color)][tenths]);
}

} // namespace velarion
