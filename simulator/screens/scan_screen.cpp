#include "scan_screen.h"

#include "machine_state.h"
#include "panel_button.h"
#include "picture_view.h"
#include "theme.h"
#include "units.h"

#include <QGridLayout>
#include <QHBoxLayout>
#include <QVBoxLayout>

namespace velarion {

namespace {

constexpr QSize FEEDER(100, 100);         // dp
constexpr char MAIL_PICTURE[] = "4157";   // ICON_..._COMMON_MAIL
constexpr char FOLDER_PICTURE[] = "4134"; // ..._SHARED_FOLDER

const char* picture_of(const QString& destination) {
    return destination.startsWith(QLatin1String("//")) ? FOLDER_PICTURE : MAIL_PICTURE;
}

} // namespace

scan_screen::scan_screen(const panel_context& context)
    : function_screen(context, job_kind::SCAN)
    , destination_(
          make_setting("destination", "209", MAIL_PICTURE)) // MSG_NORMAL_SCAN_TITLE_SELECT_DESTINATION
    , color_(make_setting("color", "66", "710"))
    , format_(make_setting("format", "204", "4160"))
    , resolution_(make_setting("resolution", "203", "867"))
    , original_(make_setting("original", "217", "706")) {
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
    card().addWidget(new picture_view(FEEDER, "2125"), 0,
                     Qt::AlignHCenter); // ICON_..._ILLUSTRATION_ORIGINAL_ADF
    connect(destination_, &QAbstractButton::clicked, this, [this] { ask_destination(); });
    connect(color_, &QAbstractButton::clicked, this, [this] {
        ask_value("66", color_modes(), machine().scan().color,
                  [this](color_mode value) { change([value](scan_settings& scan) { scan.color = value; }); });
    });
    connect(format_, &QAbstractButton::clicked, this, [this] {
        ask_value("204", file_formats(), machine().scan().format, [this](file_format value) {
            change([value](scan_settings& scan) { scan.format = value; });
        });
    });
    connect(resolution_, &QAbstractButton::clicked, this, [this] {
        ask_value("203", resolutions(), machine().scan().resolution,
                  [this](int value) { change([value](scan_settings& scan) { scan.resolution = value; }); });
    });
    connect(original_, &QAbstractButton::clicked, this, [this] {
        ask_value("217", original_types(), machine().scan().original, [this](original_type value) {
            change([value](scan_settings& scan) { scan.original = value; });
        });
    });
    connect(&machine(), &machine_state::changed, this, [this] { refresh(); });
    refresh();
}

message_text scan_screen::title() const {
    return "3"; // MSG_NORMAL_TITLE_SCAN
}

template <class CHANGE> void scan_screen::change(CHANGE apply) {
    scan_settings settings = machine().scan();
    apply(settings);
    machine().set_scan(settings);
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
    ask_choice(frame(), "209", rows,
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
    destination_->set_value(has_destination ? message_text::ordered(destination) : "48"); // MSG_CMN_NONE_TEXT
    color_->set_value(text_of(color_modes(), scan.color));
    format_->set_value(text_of(file_formats(), scan.format));
    resolution_->set_value(text_of(resolutions(), scan.resolution));
    original_->set_value(text_of(original_types(), scan.original));
    const bool has_originals = machine().originals() > 0;
    // MSG_NORMAL_STATUS_READY_TO_SCAN, MSG_NOTICE_BASIC_SELECT_DESTINATION_FIRST,
    // MSG_NORMAL_STATUS_PLACE_ORIGINAL
    show_state(has_originals && has_destination, !has_destination ? "385" : has_originals ? "128" : "129");
}

} // namespace velarion
