#include "help_screen.h"

#include "message_label.h"
#include "panel_list.h"
#include "panel_view_ids.h"
#include "picture_view.h"
#include "screen_layout.h"
#include "theme.h"
#include "units.h"

#include <QBoxLayout>

namespace velarion {

namespace {

/** Messages of a topic and its picture. */
struct help_topic {
    const char* name;
    const char* title;
    const char* body;
    const char* hint;
    const char* picture;
};

constexpr help_topic TOPICS[] = {
    {"copy", MSG_HELP_COPY_BASIC_TITLE, MSG_HELP_COPY_BASIC_BODY, MSG_HELP_COPY_BASIC_HINT,
     ICON_HELP_OUTLINE_COPY_BASIC_OPERATIONS_ICO_A},
    {"scan", MSG_HELP_SCAN_TO_EMAIL_TITLE, MSG_HELP_SCAN_TO_EMAIL_BODY, MSG_HELP_SCAN_TO_EMAIL_HINT,
     ICON_HELP_OUTLINE_SCAN_TO_EMAIL_ICO_A},
    {"fax", MSG_HELP_FAX_SEND_TITLE, MSG_HELP_FAX_SEND_BODY, MSG_HELP_FAX_SEND_HINT,
     ICON_HELP_OUTLINE_FAX_TRANSMISSION_ICO_A},
    {"documents", MSG_HELP_DOCUMENT_SERVER_TITLE, MSG_HELP_DOCUMENT_SERVER_BODY,
     MSG_HELP_DOCUMENT_SERVER_HINT, ICON_HELP_OUTLINE_STORED_DOCUMENTS_ICO_A},
    {"jobs", MSG_HELP_JOB_LIST_TITLE, MSG_HELP_JOB_LIST_BODY, MSG_HELP_JOB_LIST_HINT,
     ICON_HELP_OUTLINE_STATUS_AND_JOBS_ICO_A},
    {"trays", MSG_HELP_PAPER_TRAYS_TITLE, MSG_HELP_PAPER_TRAYS_BODY, MSG_HELP_PAPER_TRAYS_HINT,
     ICON_HELP_OUTLINE_LOADING_PAPER_ICO_A},
    {"toner", MSG_HELP_TONER_TITLE, MSG_HELP_TONER_BODY, MSG_HELP_TONER_HINT,
     ICON_HELP_OUTLINE_REPLACING_TONER_ICO_A},
    {"jam", MSG_HELP_PAPER_JAM_TITLE, MSG_HELP_PAPER_JAM_BODY, MSG_HELP_PAPER_JAM_HINT,
     ICON_HELP_OUTLINE_REMOVING_JAMMED_PAPER_ICO_A},
    {"energy", MSG_HELP_ENERGY_SAVER_TITLE, MSG_HELP_ENERGY_SAVER_BODY, MSG_HELP_ENERGY_SAVER_HINT,
     ICON_HELP_OUTLINE_SAVING_ENERGY_ICO_A},
    {"language", MSG_HELP_LANGUAGE_TITLE, MSG_HELP_LANGUAGE_BODY, MSG_HELP_LANGUAGE_HINT,
     ICON_HELP_OUTLINE_CHARACTER_ENTRY_ICO_A},
};
constexpr int LIST_WIDTH = 220; // dp
constexpr QSize PICTURE_SIZE(176, 97);

} // namespace

help_screen::help_screen(const panel_context& context)
    : panel_screen(context)
    , list_(new panel_list)
    , picture_(new picture_view(PICTURE_SIZE))
    , body_(new message_label(text_role::BODY, Qt::AlignLeading | Qt::AlignTop))
    , hint_(new message_label(text_role::CAPTION)) {
    list_->setFixedWidth(px(LIST_WIDTH));
    auto* layout = new QHBoxLayout(this);
    layout->setContentsMargins(px(grid::margin), px(grid::margin), px(grid::margin), px(grid::margin));
    layout->setSpacing(px(2 * grid::space));
    layout->addWidget(list_);
    layout->addWidget(make_page(), 1);
    connect(list_, &panel_list::chosen, this, [this](int row) { show_topic(row); });
    show_topic(0);
}

QWidget* help_screen::make_page() {
    body_->set_wraps(true);
    hint_->set_wraps(true);
    hint_->set_color(colors::quiet_text);
    auto* page = new QWidget;
    auto* layout = new QVBoxLayout(page);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(px(grid::space));
    layout->addWidget(picture_, 0, Qt::AlignLeading);
    layout->addWidget(body_, 1);
    layout->addWidget(hint_);
    return page;
}

message_text help_screen::title() const {
    return MSG_NORMAL_TITLE_HELP;
}

void help_screen::show_topic(int topic) {
    std::vector<list_row> rows;
    for (const help_topic& entry : TOPICS) {
        const bool is_chosen = &entry == &TOPICS[topic];
        rows.push_back({QLatin1String(entry.name), {}, entry.title, {}, is_chosen});
    }
    list_->set_rows(rows);
    picture_->set_picture(QLatin1String(TOPICS[topic].picture));
    body_->set_message(TOPICS[topic].body);
    hint_->set_message(TOPICS[topic].hint);
}

} // namespace velarion
