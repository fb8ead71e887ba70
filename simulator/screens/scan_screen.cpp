#include "scan_screen.h"

#include "machine_state.h"
#include "panel_button.h"
#include "panel_view_ids.h"
#include "picture_view.h"
#include "theme.h"
#include "units.h"

#include <QGridLayout>
#include <QHBoxLayout>
#include <QVBoxLayout>

namespace velarion {

namespace {

constexpr QSize FEEDER(80, 80); // dp

const char* picture_of(const QString& destination) {
    return destination.startsWith(QLatin1String("//")) ? ICON_CMN_OTHER_SHARED_FOLDER : ICON_CMN_OTHER_MAIL;
}

} // namespace

scan_screen::scan_screen(const panel_context& context)
    : function_screen(context, job_kind::SCAN)
    , destination_(make_setting("destination", MSG_NORMAL_SCAN_TITLE_SELECT_DESTINATION, ICON_CMN_OTHER_MAIL))
    , color_(make_setting("color", MSG_NORMAL_COPY_COLOR_MODE, ICON_NORMAL_OTHER_COPY_COLOR))
    , format_(make_setting("format", MSG_NORMAL_SCAN_TITLE_FILE_FORMAT, ICON_CMN_OTHER_PAGE))
    , resolution_(
          make_setting("resolution", MSG_NORMAL_SCAN_TITLE_RESOLUTION, ICON_NORMAL_OTHER_SCAN_RESOLUTION))
    , original_(
          make_setting("original", MSG_NORMAL_SCAN_TITLE_ORIGINAL_TYPE, ICON_NORMAL_OTHER_COPY_TEXT_PHOTO)) {
    card().addWidget(new picture_view(FEEDER, ICON_NORMAL_OTHER_ILLUSTRATION_ORIGINAL_ADF), 0,
                     Qt::AlignHCenter);
    make_settings();
    connect(&machine(), &machine_state::changed, this, [this] { refresh(); });
    refresh();
}

message_text scan_screen::title() const {
    return MSG_NORMAL_TITLE_SCAN;
}

template <class CHANGE> void scan_screen::change(CHANGE apply) {
    scan_settings settings = machine().scan();
    apply(settings);
    machine().set_scan(settings);
}

void scan_screen::make_settings() {
    auto* layout = new QGridLayout;
    layout->setSpacing(px(grid::space));
    layout->addWidget(destination_, 0, 0, 1, 2);
    layout->addWidget(color_, 1, 0);
    layout->addWidget(format_, 1, 1);
    layout->addWidget(resolution_, 2, 0);
    layout->addWidget(original_, 2, 1);
    for (int row = 0; row < layout->rowCount(); ++row) {
        layout->setRowStretch(row, 1);
    }
    near_side().addLayout(layout);
    connect(destination_, &QAbstractButton::clicked, this, [this] { ask_destination(); });
    connect(color_, &QAbstractButton::clicked, this, [this] {
        ask_value(MSG_NORMAL_COPY_COLOR_MODE, color_modes(), machine().scan().color,
                  [this](color_mode value) { change([value](scan_settings& scan) { scan.color = value; }); });
    });
    connect(format_, &QAbstractButton::clicked, this, [this] {
        ask_value(
            MSG_NORMAL_SCAN_TITLE_FILE_FORMAT, file_formats(), machine().scan().format,
            [this](file_format value) { change([value](scan_settings& scan) { scan.format = value; }); });
    });
    connect(resolution_, &QAbstractButton::clicked, this, [this] {
        ask_value(MSG_NORMAL_SCAN_TITLE_RESOLUTION, resolutions(), machine().scan().resolution,
                  [this](int value) { change([value](scan_settings& scan) { scan.resolution = value; }); });
    });
    connect(original_, &QAbstractButton::clicked, this, [this] {
        ask_value(
            MSG_NORMAL_SCAN_TITLE_ORIGINAL_TYPE, original_types(), machine().scan().original,
            [this](original_type value) { change([value](scan_settings& scan) { scan.original = value; }); });
    });
}

void scan_screen::ask_destination() {
    std::vector<list_row> rows;
    for (const QString& destination : machine().scan_destinations()) {
        const int place = static_cast<int>(rows.size());
        rows.push_back({QStringLiteral("destination_%1").arg(place + 1),
                        QLatin1String(picture_of(destination)),
                        message_text::ordered(destination),
                        {},
                        place == machine().scan().destination});
    }
    ask_choice(frame(), MSG_NORMAL_SCAN_TITLE_SELECT_DESTINATION, rows,
               [this](int row) { change([row](scan_settings& scan) { scan.destination = row; }); });
}

void scan_screen::start() {
    machine().start_scan();
}

void scan_screen::refresh() {
    const scan_settings& scan = machine().scan();
    const QString destination = machine().scan_destinations().value(scan.destination);
    const bool has_destination = !destination.isEmpty();
    destination_->set_picture(picture_of(destination));
    destination_->set_value(has_destination ? message_text::ordered(destination) : MSG_CMN_NONE_TEXT);
    color_->set_value(text_of(color_modes(), scan.color));
    format_->set_value(text_of(file_formats(), scan.format));
    resolution_->set_value(text_of(resolutions(), scan.resolution));
    original_->set_value(text_of(original_types(), scan.original));
    const bool has_originals = machine().originals() > 0;
    show_state(has_originals && has_destination, !has_destination ? MSG_NOTICE_BASIC_SELECT_DESTINATION_FIRST
                                                 : has_originals  ? MSG_NORMAL_STATUS_READY_TO_SCAN
                                                                  : MSG_NORMAL_STATUS_PLACE_ORIGINAL);
}

} // namespace velarion
