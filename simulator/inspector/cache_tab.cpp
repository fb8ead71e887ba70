#include "cache_tab.h"

#include "dvc_pnl_rmg_image_cache.h"
#include "dvc_pnl_rmg_image_resource_manager.h"
#include "picture_requests.h"
#include "tables.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

namespace velarion {

namespace {

constexpr int REFRESH = 500;    // ms
constexpr int SIZE_LENGTH = 14; // "wwwwww-hhhhhh-" before the name

dvc_pnl_rmg_image_resource_manager& images() {
    return *dvc_pnl_rmg_image_resource_manager::dvc_pnl_rmg_get_instance();
}

/** File and size of a key of the cache. */
QStringList parts_of(const QString& key) {
    const bool has_size = key.size() > SIZE_LENGTH && key.at(6) == QLatin1Char('-') &&
                          key.at(SIZE_LENGTH - 1) == QLatin1Char('-') && key.at(0).isDigit();
    return has_size ? QStringList{key.mid(SIZE_LENGTH), QStringLiteral("%1 %3 %2")
                                                            .arg(key.leftRef(6).toInt())
                                                            .arg(key.midRef(7, 6).toInt())
                                                            .arg(QChar(0x00d7))}
                    : QStringList{key, QStringLiteral("its own")};
}

QPushButton* new_button(const QString& text) {
    auto* button = new QPushButton(text);
    button->setAutoDefault(false);
    return button;
}

} // namespace

cache_tab::cache_tab()
    : counts_(new QLabel)
    , table_(new_table({QStringLiteral("File"), QStringLiteral("Size, px")}, 0)) {
    auto* clear = new_button(QStringLiteral("&Count from 0"));
    auto* empty = new_button(QStringLiteral("&Empty the cache"));
    auto* buttons = new QHBoxLayout;
    buttons->addWidget(clear);
    buttons->addWidget(empty);
    buttons->addStretch(1);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(counts_);
    layout->addLayout(buttons);
    layout->addWidget(table_, 1);
    connect(clear, &QPushButton::clicked, this, [this] {
        picture_requests::set_counts({});
        show_cache();
    });
    connect(empty, &QPushButton::clicked, this, &cache_tab::empty_cache);
    connect(&timer_, &QTimer::timeout, this, &cache_tab::show_cache);
}

void cache_tab::showEvent(QShowEvent*) {
    show_cache();
    timer_.start(REFRESH);
}

void cache_tab::hideEvent(QHideEvent*) {
    timer_.stop();
}

void cache_tab::show_cache() {
    const picture_counts& counts = picture_requests::counts();
    counts_->setText(QStringLiteral("%1 hits, %2 misses, %3 without a picture\n%4 of %5 KiB")
                         .arg(counts.hits)
                         .arg(counts.misses)
                         .arg(counts.failures)
                         .arg((images().cache().bytes() + 1023) / 1024)
                         .arg(images().dvc_pnl_rmg_get_cache_limit()));
    QStringList keys = images().cache().keys();
    keys.sort();
    if (keys == shown_) {
        return;
    }
    shown_ = keys;
    table_->setUpdatesEnabled(false);
    table_->clear();
    for (const QString& key : keys) {
        add_row(table_, parts_of(key));
    }
    table_->setUpdatesEnabled(true);
}

/** A picture that is larger than the limit goes; the least limit is a kilobyte, which may leave small ones.
 */
void cache_tab::empty_cache() {
    const int limit = images().dvc_pnl_rmg_get_cache_limit();
    images().dvc_pnl_rmg_set_cache_limit(1);
    images().dvc_pnl_rmg_set_cache_limit(limit);
    show_cache();
}

} // namespace velarion
