#include "search_tab.h"

#include "tables.h"

#include <QLabel>
#include <QLineEdit>
#include <QVBoxLayout>

namespace velarion {

namespace {

constexpr int TYPING_PAUSE = 120; // ms
constexpr std::size_t MOST_PLACES = 300;
constexpr int LONGEST_SEARCH = 500; // characters; nothing on a panel is longer

bool holds(const QString& text, const QString& wanted) {
    return text.contains(wanted, Qt::CaseInsensitive);
}

bool is_wanted(const text_finding& text, const QString& wanted) {
    return text.shown.message.id() == wanted || holds(text.shown.text, wanted) ||
           holds(text.origin.name, wanted);
}

bool is_wanted(const picture_finding& picture, const QString& wanted) {
    return picture.shown.id == wanted || holds(picture.origin.name, wanted) ||
           holds(picture.origin.found_name, wanted);
}

} // namespace

search_tab::search_tab(const screen_index& index)
    : index_(index)
    , field_(new QLineEdit)
    , state_(new QLabel)
    , found_(new_table({QStringLiteral("Screen"), QStringLiteral("Id"), QStringLiteral("Text, name")}, 2)) {
    field_->setPlaceholderText(QStringLiteral("Text, id or name"));
    field_->setClearButtonEnabled(true);
    field_->setMaxLength(LONGEST_SEARCH);
    delay_.setSingleShot(true);
    delay_.setInterval(TYPING_PAUSE);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(field_);
    layout->addWidget(state_);
    layout->addWidget(found_, 1);
    setFocusProxy(field_);
    connect(field_, &QLineEdit::textChanged, &delay_, [this] { delay_.start(); });
    connect(&delay_, &QTimer::timeout, this, &search_tab::search);
    connect(&index_, &screen_index::progressed, this, [this] {
        show_state();
        if (index_.is_complete() || index_.screens().empty()) {
            search();
        }
    });
    const auto choose = [this](QTreeWidgetItem* item) {
        const int row = found_->indexOfTopLevelItem(item);
        if (row >= 0) {
            const place chosen_place = places_[static_cast<std::size_t>(row)];
            Q_EMIT chosen(chosen_place.view, chosen_place.key);
        }
    };
    connect(found_, &QTreeWidget::itemClicked, this, choose);
    connect(found_, &QTreeWidget::itemActivated, this, choose);
    connect(field_, &QLineEdit::returnPressed, this, [this, choose] {
        search();
        choose(found_->topLevelItem(0));
    });
    show_state();
}

void search_tab::focus_field() {
    field_->setFocus(Qt::ShortcutFocusReason);
    field_->selectAll();
}

void search_tab::show_state() {
    const std::size_t visited = index_.screens().size();
    if (!index_.is_complete()) {
        state_->setText(
            QStringLiteral("Visiting screen %1 of %2").arg(visited).arg(screen_index::view_count()));
    } else if (field_->text().trimmed().isEmpty()) {
        state_->setText(QStringLiteral("%1 screens are searched, in the language in force.").arg(visited));
    } else if (places_.empty()) {
        state_->setText(QStringLiteral("No screen shows that."));
    } else {
        state_->setText(QStringLiteral("%1%2 found. Enter jumps there.")
                            .arg(places_.size())
                            .arg(QLatin1String(places_.size() == MOST_PLACES ? " and more" : "")));
    }
}

void search_tab::add_place(const QString& view, const element_key& key, const QStringList& cells) {
    if (places_.size() < MOST_PLACES) {
        places_.push_back({view, key});
        add_row(found_, cells);
    }
}

void search_tab::search() {
    delay_.stop();
    const QString wanted = field_->text().trimmed();
    found_->setUpdatesEnabled(false);
    found_->clear();
    places_.clear();
    for (const indexed_screen& screen : index_.screens()) {
        for (const text_finding& text : screen.findings.texts) {
            if (!wanted.isEmpty() && is_wanted(text, wanted)) {
                add_place(screen.view, element_key::of(text),
                          {screen.view, text.shown.message.id(), text.shown.text});
            }
        }
        for (const picture_finding& picture : screen.findings.pictures) {
            if (!wanted.isEmpty() && is_wanted(picture, wanted)) {
                add_place(screen.view, element_key::of(picture),
                          {screen.view, picture.shown.id, picture.origin.name});
            }
        }
    }
    found_->setUpdatesEnabled(true);
    show_state();
}

} // namespace velarion
