#include "view_controls.h"

#include "dvc_pnl_rmg_language_resource.h"
#include "dvc_pnl_rmg_property.h"
#include "pseudo_text.h"
#include "simulation.h"
#include "text_origin.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QComboBox>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QSignalBlocker>
#include <QToolButton>

namespace velarion {

namespace {

constexpr int LONGEST_LIST = 16; // languages without a scroll bar
constexpr int LIST_WIDTH = 190;  // px: the longest name of a language

enum direction_choice : int { OF_LANGUAGE, LEFT_TO_RIGHT, RIGHT_TO_LEFT };

QString disguised(const QString& text) {
    return QString::fromStdString(pseudo_text(text.toStdString(), false));
}

int id_of(const language_choice& choice) {
    return choice.language_id == DVC_PNL_RMG_PROPERTY::LANGUAGE_ID_OPTION ? choice.option_language_id
                                                                          : choice.language_id;
}

void fill(QComboBox& box, const std::vector<language_choice>& languages, const char* unset, int current) {
    const QSignalBlocker blocker(box);
    box.clear();
    if (unset) {
        box.addItem(QLatin1String(unset), 0);
    }
    for (const language_choice& language : languages) {
        box.addItem(describe_language_id(id_of(language)), id_of(language));
    }
    if (box.findData(current) < 0) {
        box.addItem(describe_language_id(current), current);
    }
    box.setCurrentIndex(box.findData(current));
}

QComboBox* new_box() {
    auto* box = new QComboBox;
    box->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    box->setMinimumContentsLength(8);
    box->setMaxVisibleItems(LONGEST_LIST);
    box->view()->setMinimumWidth(LIST_WIDTH);
    box->view()->setLayoutDirection(Qt::LeftToRight);
    box->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    return box;
}

QToolButton* new_toggle(const char* text) {
    auto* button = new QToolButton;
    button->setText(QLatin1String(text));
    button->setCheckable(true);
    button->setFocusPolicy(Qt::StrongFocus);
    return button;
}

void add_labelled(QGridLayout& layout, int row, int column, const char* text, QWidget* field) {
    auto* label = new QLabel(QLatin1String(text));
    label->setBuddy(field);
    layout.addWidget(label, row, column);
    layout.addWidget(field, row, column + 1);
}

} // namespace

view_controls::view_controls(simulation& panel)
    : simulation_(panel)
    , preferred_(new_box())
    , standard_(new_box())
    , direction_(new_box())
    , pseudo_(new_toggle("&Pseudo-texts"))
    , names_(new_toggle("&Names")) {
    direction_->addItems(
        {QStringLiteral("by language"), QStringLiteral("left to right"), QStringLiteral("right to left")});
    pseudo_->setToolTip(QStringLiteral("Every text with accents and a third longer"));
    names_->setToolTip(
        QStringLiteral("TEST_ICON_MESSAGE is in the environment: a missing text shows its key, a "
                       "missing picture its name"));
    names_->setChecked(qEnvironmentVariableIsSet("TEST_ICON_MESSAGE"));
    lay_out();
    connect_fields();
    show_languages();
}

void view_controls::lay_out() {
    auto* layout = new QGridLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setHorizontalSpacing(6);
    layout->setVerticalSpacing(4);
    layout->setColumnStretch(1, 1);
    layout->setColumnStretch(3, 1);
    add_labelled(*layout, 0, 0, "&User", preferred_);
    add_labelled(*layout, 0, 2, "&Machine", standard_);
    add_labelled(*layout, 1, 0, "&Direction", direction_);
    auto* checks = new QHBoxLayout;
    checks->addWidget(pseudo_);
    checks->addWidget(names_);
    checks->addStretch(1);
    layout->addLayout(checks, 1, 2, 1, 2);
}

void view_controls::connect_fields() {
    connect(preferred_, qOverload<int>(&QComboBox::activated), this, [this] {
        simulation_.choose_preferred_language(simulation::choice_of(preferred_->currentData().toInt()));
    });
    connect(standard_, qOverload<int>(&QComboBox::activated), this, [this] {
        simulation_.choose_standard_language(simulation::choice_of(standard_->currentData().toInt()));
    });
    connect(direction_, qOverload<int>(&QComboBox::activated), this, &view_controls::apply_direction);
    connect(pseudo_, &QToolButton::toggled, this, [this](bool is_on) {
        message_text::set_disguise(is_on ? disguised : nullptr);
        reload_texts();
    });
    connect(names_, &QToolButton::toggled, this, [this](bool is_on) {
        is_on ? qputenv("TEST_ICON_MESSAGE", "1") : qunsetenv("TEST_ICON_MESSAGE");
        simulation_.reload_pictures();
        reload_texts();
    });
    connect(&simulation_, &simulation::language_changed, this, [this] {
        show_languages();
        if (direction_->currentIndex() != OF_LANGUAGE) {
            apply_direction();
        }
    });
}

view_controls::~view_controls() {
    message_text::set_disguise(nullptr);
}

void view_controls::choose_direction(const QString& direction) {
    direction_->setCurrentIndex(direction == QLatin1String("rtl")   ? RIGHT_TO_LEFT
                                : direction == QLatin1String("ltr") ? LEFT_TO_RIGHT
                                                                    : OF_LANGUAGE);
    apply_direction();
}

void view_controls::show_languages() {
    const auto languages = simulation_.languages();
    fill(*preferred_, languages, "as machine", id_of(simulation_.preferred_language()));
    fill(*standard_, languages, nullptr, id_of(simulation_.standard_language()));
}

void view_controls::apply_direction() {
    if (direction_->currentIndex() == OF_LANGUAGE) {
        dvc_pnl_rmg_language_resource::dvc_pnl_rmg_get_instance()
            ->dvc_pnl_rmg_set_language_layout_direction();
    } else {
        QApplication::setLayoutDirection(direction_->currentIndex() == RIGHT_TO_LEFT ? Qt::RightToLeft
                                                                                     : Qt::LeftToRight);
    }
}

/** As after a change of language: screens build lists of texts anew. */
void view_controls::reload_texts() {
    simulation_.choose_preferred_language(simulation_.preferred_language());
}

} // namespace velarion
