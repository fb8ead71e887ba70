#include "jam_guidance.h"

namespace velarion {

namespace {

struct step_texts {
    const char* place;
    std::vector<message_text> texts;
};

/** MSG_ERROR_JAM_LEVER_NOT_RETURNED; the pictures name the lever so. */
message_text return_lever() {
    return {QStringLiteral("24373"), {QStringLiteral("A1")}};
}

const std::vector<step_texts>& all_texts() {
    static const std::vector<step_texts> texts = {
        // MSG_ERROR_JAM_TRAY2_FEED_..., "Pull the tray out slowly.", MSG_ERROR_COVER_...
        {"tray2", {"25475", "8496", "25270", "25271", "22197"}},
        // MSG_ERROR_JAM_OPEN_RIGHT, ..._FUSING_HOT, ..._FUSING_UNIT_REMOVE, ..., MSG_ERROR_COVER_CLOSE_RIGHT
        {"fuser", {"25774", "24372", "25302", return_lever(), "25691"}},
        {"feeder", {"353", "23012", "147", return_lever(), "25703"}},
        {"finisher", {"25783", "25532", "25414", return_lever(), "25704"}},
    };
    return texts;
}

} // namespace

message_text jam_step_text(const jam_place& place, int step) {
    for (const step_texts& entry : all_texts()) {
        const auto number = static_cast<std::size_t>(step);
        if (QLatin1String(entry.place) == QLatin1String(place.name) && number < entry.texts.size()) {
            return entry.texts[number];
        }
    }
    return place.message;
}

} // namespace velarion
