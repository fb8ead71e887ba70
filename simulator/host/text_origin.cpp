#include "text_origin.h"

#include "dvc_pnl_common_utility.h"
#include "dvc_pnl_rmg_language_resource.h"
#include "dvc_pnl_rmg_property.h"
#include "language_names.h"

#include <string>
#include <vector>

namespace velarion {

namespace {

constexpr int ENGLISH = DVC_PNL_RMG_PROPERTY::LANGUAGE_ID_ENGLISH;
constexpr int PROBED_MESSAGES = 500; ///< that tell one language from another

dvc_pnl_rmg_language_resource& language() {
    return *dvc_pnl_rmg_language_resource::dvc_pnl_rmg_get_instance();
}

bool is_standard(int language_id) {
    return language().dvc_pnl_rmg_get_standard_language_index(language_id) != -1;
}

bool is_known(int language_id) {
    return is_standard(language_id) || language().dvc_pnl_rmg_is_valid_option_language(language_id);
}

QString text_in(int message_id, int language_id) {
    return language().dvc_pnl_rmg_get_message(QByteArray::number(message_id).constData(), language_id);
}

/** Whether all texts that an unknown language gets are those of another one. */
bool speaks(int unknown_id, int language_id) {
    const int count = qMin(PROBED_MESSAGES, dvc_pnl_rmg_imple_message_table_size);
    for (int i = 0; i < count; ++i) {
        const int id = dvc_pnl_rmg_impl_message_table[i].message_id;
        if (text_in(id, unknown_id) != text_in(id, language_id)) {
            return false;
        }
    }
    return true;
}

/** The language that stands in for an unknown one. The library tells the active selection alone, so the texts
 * are asked. */
int stand_in_of(int unknown_id) {
    std::vector<int> candidates(standard_language_id_table,
                                standard_language_id_table + DVC_PNL_RMG_STANDARD_LANGUAGE_COUNT);
    std::vector<int> options;
    language().dvc_pnl_rmg_get_option_language_id_array(options);
    candidates.insert(candidates.end(), options.begin(), options.end());
    for (const int candidate : candidates) {
        if (is_known(candidate) && speaks(unknown_id, candidate)) {
            return candidate;
        }
    }
    return ENGLISH;
}

void choose_language(text_origin& origin) {
    origin.wanted_id = language().dvc_pnl_rmg_get_language_id(); // may end a selection: asked first
    const bool is_preferred = language().dvc_pnl_rmg_is_preferred_language();
    if (is_known(origin.wanted_id)) {
        origin.language_id = origin.wanted_id;
        origin.selection = is_preferred ? text_selection::PREFERRED : text_selection::STANDARD;
        return;
    }
    origin.language_id = is_preferred ? stand_in_of(origin.wanted_id) : ENGLISH;
    origin.selection = is_preferred && origin.language_id != ENGLISH ? text_selection::STANDARD_STEP
                                                                     : text_selection::ENGLISH_STEP;
}

text_origin origin_of_file(const QString& id) {
    text_origin origin;
    std::string text;
    int error = 0;
    const int result = language().dvc_pnl_rmg_get_message_data(id.toLatin1().constData(), text, error);
    origin.source = result == DVC_PNL_RMG_RESULT_OK ? text_source::DATA_FILE : text_source::NO_MESSAGE;
    return origin;
}

} // namespace

bool text_origin::is_english() const {
    const bool has_text = source == text_source::STANDARD_LANGUAGE || source == text_source::OPTION_LANGUAGE;
    return has_text && (language_id == ENGLISH || is_filled);
}

bool text_origin::fell_back_to_english() const {
    return is_english() && wanted_id != ENGLISH;
}

text_origin text_origins::find(const message_text& text) const {
    text_origin origin;
    if (!text.is_message()) {
        return origin;
    }
    DVC_PNL_RMG_IMPL_MESSAGE wanted = {0, nullptr, 0};
    DVC_PNL_RMG_IMPL_MESSAGE message;
    if (!dvc_pnl_common_utility::string_to_int(text.id().toStdString(), wanted.message_id)) {
        return origin_of_file(text.id());
    }
    origin.message_id = wanted.message_id;
    if (!dvc_pnl_rmg_language_resource::search_message_element(wanted, message)) {
        origin.source = text_source::NO_MESSAGE;
        return origin;
    }
    origin.name = QString::fromUtf8(message.message_name);
    origin.row = message.message_table_index;
    choose_language(origin);
    const QString shown = text_in(origin.message_id, origin.language_id);
    if (!origin.name.isEmpty() && shown == origin.name) {
        origin.source = text_source::NAME;
    } else if (is_standard(origin.language_id)) {
        origin.source = text_source::STANDARD_LANGUAGE;
    } else {
        origin.source = text_source::OPTION_LANGUAGE;
        origin.is_filled = filled_rows_.contains(origin.language_id, origin.row, shown);
    }
    return origin;
}

QString describe_language_id(int language_id) {
    const language_name* named = find_language(language_id);
    return named ? QStringLiteral("%1 (%2)").arg(QLatin1String(named->english)).arg(language_id)
                 : QStringLiteral("language %1").arg(language_id);
}

QString describe_origin(const text_origin& origin) {
    switch (origin.source) {
    case text_source::LITERAL:
        return QStringLiteral("no message: the same in every language");
    case text_source::NO_MESSAGE:
        return QStringLiteral("no message has this id");
    case text_source::DATA_FILE:
        return QStringLiteral("message data file");
    case text_source::NAME:
        return QStringLiteral("%1 has no text: the name is shown")
            .arg(describe_language_id(origin.language_id));
    default:
        break;
    }
    const QString place =
        origin.source == text_source::OPTION_LANGUAGE
            ? QStringLiteral("%1, option pack").arg(describe_language_id(origin.language_id))
            : describe_language_id(origin.language_id);
    const char* why = origin.selection == text_selection::PREFERRED  ? ", preferred"
                      : origin.selection == text_selection::STANDARD ? ", standard"
                      : origin.selection == text_selection::STANDARD_STEP
                          ? ", standard, in place of the unknown preferred one"
                          : ", because no language chosen is known";
    return place + QLatin1String(why) +
           QLatin1String(origin.is_filled ? "; English, the pack has no text of its own" : "");
}

} // namespace velarion
