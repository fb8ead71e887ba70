#include "element_tab.h"

#include "element_details.h"
#include "tables.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QShortcut>
#include <QSignalBlocker>
#include <QVBoxLayout>

namespace velarion {

namespace {

bool is_equal(const std::vector<element_key>& left, const std::vector<element_key>& right) {
    return std::equal(
        left.begin(), left.end(), right.begin(), right.end(),
        [](const element_key& a, const element_key& b) { return a.is_same(b) && a.box == b.box; });
}

} // namespace

element_tab::element_tab(panel_inspection& inspection)
    : inspection_(inspection)
    , title_(new QLabel)
    , properties_(new_table({QStringLiteral("Property"), QStringLiteral("Value")}, 1))
    , list_(new_table({QStringLiteral("Id"), QStringLiteral("On this screen")}, 1))
    , copy_(new QPushButton(QStringLiteral("&Copy id"))) {
    properties_->setTextElideMode(Qt::ElideMiddle); // names differ at their ends
    title_->setWordWrap(true);
    title_->setTextFormat(Qt::PlainText);
    list_->setAccessibleName(QStringLiteral("Texts and pictures of this screen"));
    auto* head = new QHBoxLayout;
    head->addWidget(title_, 1);
    head->addWidget(copy_);
    auto* layout = new QVBoxLayout(this);
    layout->addLayout(head);
    layout->addWidget(properties_, 3);
    layout->addWidget(list_, 2);
    connect(copy_, &QPushButton::clicked, this, [this] { copy_id(inspection_.pointed()); });
    connect(list_, &QTreeWidget::currentItemChanged, this,
            [this](QTreeWidgetItem* item) { point_at_row(list_->indexOfTopLevelItem(item)); });
    connect(list_, &QTreeWidget::itemActivated, this, [this] { copy_id(inspection_.pointed()); });
    connect(&inspection_, &panel_inspection::refreshed, this, &element_tab::show_list);
    connect(&inspection_, &panel_inspection::pointed_changed, this, &element_tab::show_element);
    show_element();
}

void element_tab::copy_id(const element_key& key) {
    if (key.is != element_key::NONE) {
        QGuiApplication::clipboard()->setText(key.id);
        Q_EMIT told(QStringLiteral("Copied %1").arg(key.id.left(40)));
    }
}

void element_tab::show_element() {
    const element_key& key = inspection_.pointed();
    element_details details;
    if (const text_finding* text = inspection_.find_text(key)) {
        details = details_of(*text);
    } else if (const picture_finding* picture = inspection_.find_picture(key)) {
        details = details_of(*picture);
    }
    copy_->setEnabled(!details.rows.isEmpty());
    title_->setText(details.rows.isEmpty()
                        ? QStringLiteral("Point at a text or picture of the panel, or choose one below.")
                        : details.title);
    properties_->setUpdatesEnabled(false);
    properties_->clear();
    for (const QStringList& row : details.rows) {
        add_row(properties_, row);
    }
    properties_->setUpdatesEnabled(true);
    const auto found = std::find_if(listed_.begin(), listed_.end(), [&key](const element_key& listed) {
        return listed.is_same(key) && listed.box == key.box;
    });
    const QSignalBlocker blocker(list_);
    list_->setCurrentItem(
        found == listed_.end() ? nullptr : list_->topLevelItem(static_cast<int>(found - listed_.begin())));
}

void element_tab::show_list() {
    std::vector<element_key> keys;
    std::vector<QString> labels;
    for (const text_finding& text : inspection_.findings().texts) {
        keys.push_back(element_key::of(text));
        labels.push_back(text.shown.text);
    }
    for (const picture_finding& picture : inspection_.findings().pictures) {
        keys.push_back(element_key::of(picture));
        labels.push_back(picture.origin.found_name.isEmpty() ? picture.origin.file
                                                             : picture.origin.found_name);
    }
    if (is_equal(keys, listed_)) {
        return;
    }
    listed_ = keys;
    const QSignalBlocker blocker(list_);
    list_->setUpdatesEnabled(false);
    list_->clear();
    for (std::size_t i = 0; i < keys.size(); ++i) {
        const bool is_literal = keys[i].is == element_key::TEXT && keys[i].id == labels[i];
        add_row(list_, {is_literal ? QString(QChar(0x2013)) : keys[i].id, labels[i]});
    }
    list_->setUpdatesEnabled(true);
}

void element_tab::point_at_row(int row) {
    if (row >= 0 && row < static_cast<int>(listed_.size())) {
        inspection_.point_at(listed_[static_cast<std::size_t>(row)]);
    }
}

} // namespace velarion
