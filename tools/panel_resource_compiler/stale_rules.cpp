#include "catalogue_rules.h"

#include "checks.h"
#include "confirmed_texts.h"
#include "text_findings.h"

namespace velarion {

void check_stale(const std::string& folder, const message_catalogue& catalogue, const text_file& language,
                 diagnostics& report) {
    confirmed_texts confirmed(folder, language.language);
    if (language.language == STANDARD_LANGUAGE_NAMES[ENGLISH_INDEX] || !confirmed.read(report) ||
        confirmed.is_new()) {
        return;
    }
    for (const row_text& text : language.texts) {
        const std::string& english = catalogue.rows[static_cast<std::size_t>(text.row)].texts[ENGLISH_INDEX];
        if (text.text.empty() || english.empty()) {
            continue;
        }
        const confirmation state = confirmed.state(text.row, english);
        if (state == confirmation::STALE) {
            report.add(text_finding(CHECK_STALE, language.language, text, 0,
                                    "the English text has changed to " + quoted_text(english) +
                                        "; translate it, or confirm the row"));
        } else if (state == confirmation::NONE) {
            finding found =
                text_finding(CHECK_UNCONFIRMED, language.language, text, 0, "nobody has confirmed the text");
            found.kind = severity::REMARK;
            report.add(std::move(found));
        }
    }
}

} // namespace velarion
