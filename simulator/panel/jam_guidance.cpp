#include "jam_guidance.h"

#include "panel_view_ids.h"

namespace velarion {

namespace {

struct step_texts {
    const char* place;
    std::vector<message_text> texts;
};

/** MSG_ERROR_JAM_LEVER_NOT_RETURNED; the pictures name the lever so. */
message_text return_lever() {
    return {MSG_ERROR_JAM_LEVER_NOT_RETURNED, {QStringLiteral("A1")}};
}

const std::vector<step_texts>& all_texts() {
    static const std::vector<step_texts> texts = {
        {"tray2",
         {MSG_ERROR_JAM_AT_TRAY2_FEED, MSG_NORMAL_PAPERTRAY_PULL_OUT, MSG_ERROR_JAM_TRAY2_FEED_REMOVE,
          MSG_ERROR_JAM_TRAY2_FEED_CHECK_PIECES, MSG_BANNER_COVER_CLOSE_ALL}},
        {"fuser",
         {MSG_ERROR_COVER_REMOVE_JAM_RIGHT, MSG_ERROR_JAM_FUSING_HOT, MSG_ERROR_JAM_FUSING_UNIT_REMOVE,
          return_lever(), MSG_ERROR_COVER_CLOSE_RIGHT}},
        {"feeder",
         {MSG_ERROR_BASIC_ORIGINAL_JAM, MSG_BANNER_FEEDER_ORIGINAL_JAM, MSG_NORMAL_STATUS_REMOVE_ORIGINAL,
          return_lever(), MSG_ERROR_COVER_CLOSE_DF}},
        {"finisher",
         {MSG_ERROR_COVER_REMOVE_JAM_FINISHER_FRONT, MSG_ERROR_JAM_AT_FINISHER_UPPER_EXIT,
          MSG_ERROR_JAM_FINISHER_UPPER_EXIT_REMOVE, return_lever(), MSG_ERROR_COVER_CLOSE_FINISHER_FRONT}},
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
