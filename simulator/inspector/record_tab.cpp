#include "record_tab.h"

#include "tables.h"
#include "window_style.h"

#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QScrollBar>
#include <QVBoxLayout>

#include <algorithm>

namespace velarion {

namespace {

constexpr std::size_t KEPT = 1000;
constexpr std::size_t DROPPED_AT_ONCE = 200;
constexpr std::size_t SHOWN_AT_ONCE = 200;
constexpr int DELAY = 100;         // ms
constexpr int WIDEST_COLUMN = 96;  // px, but for the one that takes the room that is left
constexpr int LONGEST_WHOLE = 600; // characters

} // namespace

record_tab::record_tab(const QStringList& columns, int stretched)
    : filter_(new QLineEdit)
    , pause_(new QPushButton(QStringLiteral("&Hold")))
    , table_(new_table(columns, stretched))
    , whole_(new QLabel) {
    filter_->setPlaceholderText(QStringLiteral("Filter"));
    filter_->setClearButtonEnabled(true);
    filter_->setMaxLength(200);
    pause_->setCheckable(true);
    pause_->setAutoDefault(false);
    pause_->setToolTip(QStringLiteral("Shows nothing new until it is released"));
    auto* clear_button = new QPushButton(QStringLiteral("C&lear"));
    clear_button->setAutoDefault(false);
    auto* head = new QHBoxLayout;
    head->addWidget(filter_, 1);
    head->addWidget(pause_);
    head->addWidget(clear_button);
    auto* layout = new QVBoxLayout(this);
    layout->addLayout(head);
    layout->addWidget(table_, 1);
    layout->addWidget(whole_);
    whole_->setTextFormat(Qt::PlainText);
    whole_->setWordWrap(true);
    whole_->setTextInteractionFlags(Qt::TextSelectableByMouse);
    whole_->hide();
    table_->header()->setMaximumSectionSize(WIDEST_COLUMN);
    setFocusProxy(filter_);
    delay_.setSingleShot(true);
    delay_.setInterval(DELAY);
    connect(&delay_, &QTimer::timeout, this, &record_tab::show_new);
    connect(filter_, &QLineEdit::textChanged, this, &record_tab::show_again);
    connect(pause_, &QPushButton::toggled, this, &record_tab::show_new);
    connect(table_, &QTreeWidget::currentItemChanged, this, &record_tab::show_whole);
    connect(clear_button, &QPushButton::clicked, this, &record_tab::clear);
}

void record_tab::add(const QStringList& cells, bool is_fault) {
    records_.push_back({cells, is_fault});
    if (records_.size() >= KEPT + DROPPED_AT_ONCE) {
        records_.erase(records_.begin(), records_.begin() + DROPPED_AT_ONCE);
        shown_ = shown_ > DROPPED_AT_ONCE ? shown_ - DROPPED_AT_ONCE : 0;
    }
    if (!delay_.isActive()) {
        delay_.start();
    }
}

bool record_tab::is_wanted(const record& entry) const {
    const QString wanted = filter_->text().trimmed();
    return std::any_of(entry.cells.begin(), entry.cells.end(),
                       [&wanted](const QString& cell) { return cell.contains(wanted, Qt::CaseInsensitive); });
}

/** A part of them, so that the event loop gets its turn. */
void record_tab::show_new() {
    if (pause_->isChecked()) {
        return;
    }
    const QScrollBar* bar = table_->verticalScrollBar();
    const bool is_at_end = bar->value() == bar->maximum();
    const std::size_t end = std::min(records_.size(), shown_ + SHOWN_AT_ONCE);
    table_->setUpdatesEnabled(false);
    for (; shown_ < end; ++shown_) {
        const record& entry = records_[shown_];
        if (is_wanted(entry)) {
            QTreeWidgetItem* item = add_row(table_, entry.cells);
            item->setData(0, Qt::UserRole, entry.cells.join(QStringLiteral("  ")).left(LONGEST_WHOLE));
            for (int i = 0; entry.is_fault && i < entry.cells.size(); ++i) {
                item->setForeground(i, window_colors::fault_text);
            }
        }
    }
    while (table_->topLevelItemCount() > static_cast<int>(KEPT + DROPPED_AT_ONCE)) {
        delete table_->takeTopLevelItem(0);
    }
    table_->setUpdatesEnabled(true);
    if (is_at_end) {
        table_->scrollToBottom();
    }
    if (shown_ < records_.size()) {
        delay_.start();
    }
}

void record_tab::show_whole() {
    const QTreeWidgetItem* item = table_->currentItem();
    whole_->setVisible(item);
    whole_->setText(item ? item->data(0, Qt::UserRole).toString() : QString());
}

void record_tab::show_again() {
    table_->clear();
    shown_ = 0;
    show_new();
}

void record_tab::clear() {
    records_.clear();
    show_again();
}

} // namespace velarion
