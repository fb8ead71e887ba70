#include "setting_texts.h"

#include "panel_view_ids.h"

namespace velarion {

namespace {

message_text literal(const char* text) {
    return message_text::ordered(QString::fromUtf8(text));
}

} // namespace

const std::vector<named_value<color_mode>>& color_modes() {
    static const std::vector<named_value<color_mode>> values = {
        {color_mode::AUTO, "color_auto", MSG_NORMAL_COPY_COLOR_AUTO},
        {color_mode::FULL, "color_full", MSG_NORMAL_COPY_COLOR_FULL},
        {color_mode::BLACK_WHITE, "color_none", MSG_NORMAL_COPY_COLOR_BW},
    };
    return values;
}

const std::vector<named_value<copy_sides>>& sides_of_copies() {
    static const std::vector<named_value<copy_sides>> values = {
        {copy_sides::ONE_TO_ONE, "sides_off", MSG_CMN_OFF_TEXT},
        {copy_sides::ONE_TO_TWO, "sides_one_two", MSG_NORMAL_COPY_ONE_TO_TWO_SIDED},
        {copy_sides::TWO_TO_TWO, "sides_two_two", MSG_NORMAL_COPY_TWO_TO_TWO_SIDED},
        {copy_sides::TWO_TO_ONE, "sides_two_one", MSG_NORMAL_COPY_TWO_TO_ONE_SIDED},
    };
    return values;
}

const std::vector<named_value<original_type>>& original_types() {
    static const std::vector<named_value<original_type>> values = {
        {original_type::TEXT, "original_text", MSG_NORMAL_COPY_ORIGINAL_TEXT},
        {original_type::TEXT_PHOTO, "original_text_photo", MSG_NORMAL_COPY_ORIGINAL_TEXT_PHOTO},
        {original_type::PHOTO, "original_photo", MSG_NORMAL_COPY_ORIGINAL_PHOTO},
    };
    return values;
}

const std::vector<named_value<int>>& ratios() {
    static const std::vector<named_value<int>> values = {
        {100, "ratio_100", MSG_NORMAL_COPY_FULL_SIZE},     {71, "ratio_71", MSG_NORMAL_COPYSET_ZOOM_A3_A4},
        {141, "ratio_141", MSG_NORMAL_COPYSET_ZOOM_A4_A3}, {50, "ratio_50", MSG_NORMAL_COPYSET_ZOOM_A3_A5},
        {200, "ratio_200", MSG_NORMAL_COPYSET_ZOOM_A6_A4}, {82, "ratio_82", MSG_NORMAL_COPYSET_ZOOM_B5_A5},
        {115, "ratio_115", MSG_NORMAL_COPYSET_ZOOM_B4_A3},
    };
    return values;
}

const std::vector<named_value<int>>& paper_choices() {
    static const std::vector<named_value<int>> values = {
        {0, "paper_auto", MSG_NORMAL_COPY_PAPER_AUTO},
        {1, "paper_1", message_text(MSG_NORMAL_COPY_PAPER_TRAY, {QStringLiteral("1")})},
        {2, "paper_2", message_text(MSG_NORMAL_COPY_PAPER_TRAY, {QStringLiteral("2")})},
        {3, "paper_3", message_text(MSG_NORMAL_COPY_PAPER_TRAY, {QStringLiteral("3")})},
        {4, "paper_4", message_text(MSG_NORMAL_COPY_PAPER_TRAY, {QStringLiteral("4")})},
        {BYPASS_TRAY, "paper_bypass", MSG_NORMAL_COPY_PAPER_BYPASS},
    };
    return values;
}

const std::vector<named_value<file_format>>& file_formats() {
    static const std::vector<named_value<file_format>> values = {
        {file_format::PDF, "format_pdf", literal("PDF")},
        {file_format::PDF_A, "format_pdf_a", literal("PDF/A")},
        {file_format::JPEG, "format_jpeg", literal("JPEG")},
        {file_format::TIFF, "format_tiff", literal("TIFF")},
    };
    return values;
}

const std::vector<named_value<int>>& resolutions() {
    static const std::vector<named_value<int>> values = {
        {100, "dpi_100", literal("100 dpi")}, {200, "dpi_200", literal("200 dpi")},
        {300, "dpi_300", literal("300 dpi")}, {400, "dpi_400", literal("400 dpi")},
        {600, "dpi_600", literal("600 dpi")},
    };
    return values;
}

message_text ratio_text(int ratio) {
    return ratio == 100 ? text_of(ratios(), ratio) : message_text::literal(QStringLiteral("%1%").arg(ratio));
}

message_text density_text(int density) {
    const QString sign = density < 0   ? QStringLiteral("\u2212")
                         : density > 0 ? QStringLiteral("+")
                                       : QString();
    return message_text::ordered(sign + QString::number(qAbs(density)));
}

QString size_name(paper_size size) {
    constexpr const char* NAMES[] = {"A3", "A4", "A5", "B4", "B5", "8\u00bd\u00d711"};
    return QString::fromUtf8(NAMES[static_cast<int>(size)]);
}

} // namespace velarion
