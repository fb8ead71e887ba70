#include "supply_texts.h"

namespace velarion {

namespace {

/** Picture ids: full, half, low, empty follow each other. */
constexpr int FIRST_TRAY_PICTURE = 1789; // ICON_..._PAPER_TRAY_1_FULL
constexpr int BYPASS_PICTURE = 1825;
constexpr int PICTURES_OF_TRAY = 6;

constexpr int HALF = 60; // %, from here downwards
constexpr int LOW = 15;

constexpr const char* SIZES[] = {"A3", "A4", "A5", "B4", "B5", "8½ × 11"};
/** MSG_NORMAL_TRAY_ITEM_PLAIN_PAPER and the next ones. */
constexpr const char* KINDS[] = {"303", "304", "305", "306", "307", "308"};
/** Picture ids of a full bottle; 90, 80, ... % follow. Black, cyan, magenta, yellow. */
constexpr int TONER_PICTURES[] = {1778, 1745, 1756, 1767};

} // namespace

message_text tray_name(const paper_tray& tray) {
    if (tray.number == BYPASS_TRAY) {
        return "90"; // MSG_NORMAL_COPY_PAPER_BYPASS
    }
    return {QStringLiteral("89"), {QString::number(tray.number)}}; // MSG_NORMAL_COPY_PAPER_TRAY
}

message_text paper_kind_name(const paper_tray& tray) {
    return KINDS[static_cast<int>(tray.kind)];
}

message_text paper_size_name(const paper_tray& tray) {
    return message_text::literal(QString::fromUtf8(SIZES[static_cast<int>(tray.size)]));
}

QString tray_picture(const paper_tray& tray) {
    const int first = tray.number == BYPASS_TRAY ? BYPASS_PICTURE
                                                 : FIRST_TRAY_PICTURE + (tray.number - 1) * PICTURES_OF_TRAY;
    const int percent = tray.percent();
    return QString::number(first + (percent <= 0 ? 3 : percent <= LOW ? 2 : percent <= HALF ? 1 : 0));
}

QString toner_picture(const toner_bottle& bottle) {
    const int tens = bottle.percent <= 0 ? 0 : qMax(1, bottle.percent / 10);
    return QString::number(TONER_PICTURES[static_cast<int>(bottle.color)] + 10 - tens);
}

} // namespace velarion
