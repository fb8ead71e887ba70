#include "paper_jam.h"

namespace velarion {

const std::vector<jam_place>& jam_places() {
    static const std::vector<jam_place> places = {
        // MSG_BANNER_TRAY2_PAPER_JAM, ICON_ERROR_OTHER_REMOVE_PAPER_PAPER_TRAYS_FRONT_A1_...
        {"tray2", "22405", "2476", {"2478", "2479", "2480", "2481", "2482"}},
        // MSG_ERROR_JAM_FUSING_UNIT_DETECTED, ..._MAIN_UNIT_RIGHT_A1_...
        {"fuser", "24970", "2301", {"2303", "2304", "2305", "2306", "2307"}},
        // MSG_BANNER_FEEDER_ORIGINAL_JAM, ..._DOCUMENT_FEEDER_TOP_A1_...
        {"feeder", "23012", "3711", {"3713", "3714", "3715", "3716", "3717"}},
        // MSG_BANNER_FINISHER_UPPER_TRAY_PAPER_JAM, ..._FINISHER_FRONT_A1_...
        {"finisher", "22985", "2506", {"2508", "2509", "2510", "2511", "2512"}},
    };
    return places;
}

const jam_place* find_jam_place(const QString& name) {
    for (const jam_place& place : jam_places()) {
        if (name == QLatin1String(place.name)) {
            return &place;
        }
    }
    return nullptr;
}

} // namespace velarion
