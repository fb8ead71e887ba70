#include "findings_tab.h"

#include "element_details.h"
#include "tables.h"
#include "window_style.h"

#include <QHeaderView>
#include <QLabel>
#include <QVBoxLayout>

namespace velarion {

namespace {

enum role : int { VIEW_ROLE = Qt::UserRole, KIND_ROLE, ID_ROLE, BOX_ROLE };

enum column : int {
    NAME,
    OVERFLOW_COUNT,
    OVERLAP_COUNT,
    GLYPH_COUNT,
    PICTURE_COUNT,
    FALL_BACK_COUNT,
    COLUMNS
};

QString cell(int count) {
    return count == 0 ? QString(QChar(0x2013)) : QString::number(count);
}

void add_finding(QTreeWidgetItem* screen, const element_key& key, const QString& label, const QString& faults,
                 const QColor& color) {
    QTreeWidgetItem* item = add_row(screen, {QStringLiteral("%1: %2").arg(label, faults)});
    item->setForeground(NAME, color);
    item->setFirstColumnSpanned(true);
    item->setData(NAME, KIND_ROLE, key.is);
    item->setData(NAME, ID_ROLE, key.id);
    item->setData(NAME, BOX_ROLE, key.box);
}

} // namespace

findings_tab::findings_tab(const screen_index& index)
    : index_(index)
    , summary_(new QLabel)
    , table_(new_table({QStringLiteral("Screen"), QStringLiteral("Over"), QStringLiteral("Lap"),
                        QStringLiteral("Glyph"), QStringLiteral("Pict"), QStringLiteral("Engl")},
                       NAME)) {
    table_->setRootIsDecorated(true);
    const char* const hints[COLUMNS] = {"",
                                        "texts that their box cannot hold",
                                        "texts drawn over another",
                                        "texts with characters that no font of the panel shows",
                                        "pictures that are not there",
                                        "texts in English, or none, where another language was asked for"};
    for (int i = 0; i < COLUMNS; ++i) {
        table_->headerItem()->setToolTip(i, QLatin1String(hints[i]));
    }
    summary_->setWordWrap(true);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(summary_);
    layout->addWidget(table_, 1);
    const auto choose = [this](QTreeWidgetItem* item) {
        const QTreeWidgetItem* screen = item->parent() ? item->parent() : item;
        element_key key;
        key.is = static_cast<element_key::kind>(item->data(NAME, KIND_ROLE).toInt());
        key.id = item->data(NAME, ID_ROLE).toString();
        key.box = item->data(NAME, BOX_ROLE).toRect();
        Q_EMIT chosen(screen->data(NAME, VIEW_ROLE).toString(), key);
    };
    connect(table_, &QTreeWidget::itemClicked, this, choose);
    connect(table_, &QTreeWidget::itemActivated, this, choose);
    connect(&index_, &screen_index::progressed, this, &findings_tab::take_progress);
    show_summary();
}

void findings_tab::take_progress() {
    if (index_.screens().size() < shown_ || index_.screens().empty()) {
        table_->clear();
        shown_ = 0;
    }
    while (shown_ < index_.screens().size()) {
        add_screen(index_.screens()[shown_++]);
    }
    show_summary();
}

void findings_tab::add_screen(const indexed_screen& screen) {
    const finding_counts& counts = screen.findings.counts;
    QTreeWidgetItem* item = add_row(table_, {screen.view, cell(counts.overflows), cell(counts.overlaps),
                                             cell(counts.missing_glyphs), cell(counts.missing_pictures),
                                             cell(counts.fall_backs)});
    item->setData(NAME, VIEW_ROLE, screen.view);
    for (int i = OVERFLOW_COUNT; i < COLUMNS; ++i) {
        item->setTextAlignment(i, Qt::AlignCenter);
    }
    for (const text_finding& text : screen.findings.texts) {
        const QString faults = describe_faults(text);
        if (!faults.isEmpty()) {
            add_finding(item, element_key::of(text), text.shown.text, faults,
                        text.is_fault() ? window_colors::fault_text : window_colors::fall_back_text);
        }
    }
    for (const picture_finding& picture : screen.findings.pictures) {
        if (picture.is_missing()) {
            const QString label = picture.origin.file.isEmpty() ? picture.shown.id : picture.origin.file;
            add_finding(item, element_key::of(picture), label, describe_faults(picture),
                        window_colors::fault_text);
        }
    }
    item->setExpanded(counts.faults() != 0);
}

void findings_tab::show_summary() {
    finding_counts all;
    for (const indexed_screen& screen : index_.screens()) {
        all += screen.findings.counts;
    }
    const QString state =
        index_.is_complete()
            ? QStringLiteral("%1 screens").arg(index_.screens().size())
            : QStringLiteral("Screen %1 of %2").arg(index_.screens().size()).arg(screen_index::view_count());
    summary_->setText(
        QStringLiteral("%1: %2 overflow, %3 overlap, %4 lack glyphs, %5 pictures missing, %6 texts in "
                       "English instead.")
            .arg(state)
            .arg(all.overflows)
            .arg(all.overlaps)
            .arg(all.missing_glyphs)
            .arg(all.missing_pictures)
            .arg(all.fall_backs));
}

} // namespace velarion
