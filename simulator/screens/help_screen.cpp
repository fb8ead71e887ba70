#include "help_screen.h"

#include "message_label.h"
#include "panel_list.h"
#include "picture_view.h"
#include "screen_layout.h"
#include "theme.h"
#include "units.h"

#include <QBoxLayout>

namespace velarion {

namespace {

/** Messages of a topic, MSG_HELP_..., and its picture, ICON_HELP_OUTLINE_... */
struct help_topic {
    const char* name;
    const char* title;
    const char* body;
    const char* hint;
    const char* picture;
};

constexpr help_topic TOPICS[] = {
    {"copy", "31053", "31054", "31055", "1389"},   {"scan", "31113", "31114", "31115", "1411"},
    {"fax", "31192", "31193", "31194", "1430"},    {"documents", "31390", "31252", "31253", "1459"},
    {"jobs", "31392", "31256", "31257", "1545"},   {"trays", "31258", "31259", "31260", "1491"},
    {"toner", "31272", "31273", "31274", "1514"},  {"jam", "31282", "31283", "31284", "1523"},
    {"energy", "31291", "31293", "31294", "1561"}, {"language", "31298", "31299", "31300", "1577"},
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
    return "12"; // MSG_NORMAL_TITLE_HELP
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
