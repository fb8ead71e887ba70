#include "trays_screen.h"

#include "card.h"
#include "machine_state.h"
#include "message_label.h"
#include "panel_view_ids.h"
#include "picture_view.h"
#include "progress_bar.h"
#include "screen_layout.h"
#include "supply_texts.h"
#include "theme.h"
#include "units.h"

#include <QBoxLayout>

namespace velarion {

namespace {

constexpr int LOW = 10; // %
constexpr QSize PICTURE_SIZE(grid::large_icon, grid::large_icon);

QColor level_color(int percent) {
    return percent <= 0 ? colors::error : percent <= LOW ? colors::warn : colors::quiet_text;
}

message_text percent_text(int percent) {
    return message_text::literal(QStringLiteral("%1%").arg(percent));
}

/** A card whose width is its share of the row, whatever stands on it. */
QBoxLayout* lay_out_card(card& ground, QBoxLayout::Direction direction) {
    ground.setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
    auto* layout = new QBoxLayout(direction, &ground);
    layout->setContentsMargins(px(grid::space), px(grid::space), px(grid::space), px(grid::space));
    layout->setSpacing(px(grid::gap));
    return layout;
}

} // namespace

trays_screen::trays_screen(const panel_context& context)
    : panel_screen(context) {
    QWidget* trays = make_row({});
    for (std::size_t i = 0; i < machine().trays().size(); ++i) {
        trays->layout()->addWidget(make_tray_card());
    }
    QWidget* toner = make_row({});
    for (std::size_t i = 0; i < machine().toner().size(); ++i) {
        toner->layout()->addWidget(make_toner_card());
    }
    QBoxLayout* layout = lay_out_column(*this, {});
    layout->addWidget(trays, 1);
    layout->addWidget(toner);
    connect(&machine(), &machine_state::changed, this, [this] { refresh(); });
    refresh();
}

/** Picture and size above, what it is called and how full it is below. */
QWidget* trays_screen::make_tray_card() {
    supply_card made{new picture_view(PICTURE_SIZE),
                     new message_label(text_role::TITLE, Qt::AlignCenter),
                     new progress_bar,
                     new message_label(text_role::CAPTION, Qt::AlignCenter),
                     new message_label(text_role::BUTTON, Qt::AlignCenter),
                     new message_label(text_role::CAPTION, Qt::AlignCenter)};
    auto* ground = new card;
    QBoxLayout* layout = lay_out_card(*ground, QBoxLayout::TopToBottom);
    layout->addWidget(made.picture, 0, Qt::AlignHCenter);
    for (message_label* label : {made.name, made.size, made.kind}) {
        label->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
        layout->addWidget(label, label == made.kind ? 1 : 0);
    }
    made.kind->set_wraps(true);
    layout->addWidget(made.bar);
    layout->addWidget(made.level);
    trays_.push_back(made);
    return ground;
}

QWidget* trays_screen::make_toner_card() {
    supply_card made{new picture_view(PICTURE_SIZE),      nullptr, new progress_bar,
                     new message_label(text_role::TITLE), nullptr, nullptr};
    auto* ground = new card;
    QBoxLayout* layout = lay_out_card(*ground, QBoxLayout::LeftToRight);
    layout->addWidget(made.picture);
    auto* column = new QVBoxLayout;
    column->setSpacing(px(grid::gap));
    column->addWidget(made.level);
    column->addWidget(made.bar);
    layout->addLayout(column, 1);
    toner_.push_back(made);
    return ground;
}

message_text trays_screen::title() const {
    return MSG_NORMAL_SUPPLY_TITLE_SUPPLY_LEVELS;
}

void trays_screen::refresh() {
    for (std::size_t i = 0; i < trays_.size(); ++i) {
        const paper_tray& tray = machine().trays()[i];
        trays_[i].picture->set_picture(tray_picture(tray));
        trays_[i].name->set_message(tray_name(tray));
        trays_[i].size->set_message(paper_size_name(tray));
        trays_[i].kind->set_message(paper_kind_name(tray));
        trays_[i].bar->set_percent(tray.percent());
        trays_[i].level->set_message(percent_text(tray.percent()));
        trays_[i].level->set_color(level_color(tray.percent()));
    }
    for (std::size_t i = 0; i < toner_.size(); ++i) {
        const toner_bottle& bottle = machine().toner()[i];
        toner_[i].picture->set_picture(toner_picture(bottle));
        toner_[i].bar->set_percent(bottle.percent);
        toner_[i].level->set_message(percent_text(bottle.percent));
        toner_[i].level->set_color(bottle.percent <= LOW ? level_color(bottle.percent) : colors::text);
    }
}

} // namespace velarion
