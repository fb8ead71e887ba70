#include "picture_kinds.h"

#include <algorithm>
#include <array>

namespace velarion {

namespace {

struct named_kind {
    const char* beginning;
    picture_kind kind;
};

constexpr picture_kind ICON = {draw_icon, 48, 48, 4.0 / 3, 8, 12};

/** The first that fits counts. */
const std::array<named_kind, 25> KINDS = {{
    {"ico_toner_cyan", {draw_toner, 48, 48, 4.0 / 3, 8, 12}},
    {"ico_toner_magenta", {draw_toner, 48, 48, 4.0 / 3, 8, 12}},
    {"ico_toner_yellow", {draw_toner, 48, 48, 4.0 / 3, 8, 12}},
    {"ico_toner_black", {draw_toner, 48, 48, 4.0 / 3, 8, 12}},
    {"ico_backlight_level_", {draw_steps, 48, 48, 4.0 / 3, 8, 12}},
    {"ico_contrast_level_", {draw_steps, 48, 48, 4.0 / 3, 8, 12}},
    {"ico_density_level_", {draw_steps, 48, 48, 4.0 / 3, 8, 12}},
    {"ico_sharpness_level_", {draw_steps, 48, 48, 4.0 / 3, 8, 12}},
    {"ico_sound_level_", {draw_steps, 48, 48, 4.0 / 3, 8, 12}},
    {"ico_starea_wifi_signal_", {draw_steps, 48, 48, 4.0 / 3, 8, 12}},
    {"ico_paper_", {draw_paper, 48, 48, 4.0 / 3, 8, 12}},
    {"ico_finishing_", {draw_finishing, 48, 48, 4.0 / 3, 8, 12}},
    {"ico_softkey_", {draw_key, 48, 48, 4.0 / 3, 8, 12}},
    {"gra_tenkey_", {draw_key, 48, 48, 4.0 / 3, 8, 12}},
    {"gra_key_popup_", {draw_key, 64, 80, 1, 8, 12}},
    {"gra_keyboard_layout_", {draw_key, 160, 80, 1, 8, 12}},
    {"gra_help_", {draw_help, 320, 176, 1, 8, 12}},
    {"gra_notice_", {draw_illustration, 96, 96, 4.0 / 3, 8, 12}},
    {"il_", {draw_illustration, 96, 96, 1, 8, 12}},
    {"du_", {draw_preview, 96, 96, 1, 8, 12}},
    {"st_", {draw_preview, 96, 96, 1, 8, 12}},
    {"pu_", {draw_preview, 96, 96, 1, 8, 12}},
    {"ma_", {draw_preview, 96, 96, 1, 8, 12}},
    {"bk_", {draw_preview, 96, 96, 1, 8, 12}},
    {"cb_", {draw_preview, 96, 96, 1, 8, 12}},
}};

/** The sizes of components, by how their names go on. */
struct named_size {
    const char* beginning;
    double width;
    double height;
};

const std::array<named_size, 25> COMPONENT_SIZES = {{
    {"background_keyboard", 48, 48},
    {"background_statusarea", 480, 32},
    {"background_sidebar", 64, 240},
    {"background_header", 480, 48},
    {"background_footer", 480, 48},
    {"background_dialog", 320, 200},
    {"background_popup", 240, 160},
    {"background", 480, 272},
    {"list_2line", 320, 72},
    {"list_3line", 320, 96},
    {"list_header", 320, 32},
    {"list", 320, 48},
    {"button_tall", 64, 96},
    {"button_small", 64, 40},
    {"button_round", 56, 56},
    {"button_large", 160, 56},
    {"button_wide", 240, 48},
    {"button", 112, 48},
    {"tab_vertical", 64, 96},
    {"tab", 112, 40},
    {"tile", 112, 112},
    {"frame", 200, 80},
    {"balloon", 160, 120},
    {"key", 96, 96},
    {"separator", 160, 2},
}};

bool begins_with(const std::string& text, const std::string& beginning) {
    return text.compare(0, beginning.size(), beginning) == 0;
}

picture_kind component_kind(const std::string& part) {
    picture_kind kind = {draw_component, 48, 48, 1, 8, 12};
    const auto size =
        std::find_if(COMPONENT_SIZES.begin(), COMPONENT_SIZES.end(),
                     [&part](const named_size& row) { return begins_with(part, row.beginning); });
    if (size != COMPONENT_SIZES.end()) {
        kind.width = size->width;
        kind.height = size->height;
    }
    if (begins_with(part, "progress") || begins_with(part, "slider_bar")) {
        kind.width = 200;
        kind.height = 16;
    } else if (begins_with(part, "scroll_bar") || begins_with(part, "scroll_knob")) {
        kind.width = 24;
        kind.height = 120;
    } else if (part == "separator_vertical") {
        std::swap(kind.width, kind.height);
    }
    return kind;
}

bool is_guidance_code(const std::string& word) {
    return word.size() == 3 &&
           std::all_of(word.begin(), word.end(), [](char c) { return c >= 'A' && c <= 'Z'; });
}

} // namespace

picture_kind kind_of(const picture_name& name) {
    const std::string component = "gra_component_";
    if (begins_with(name.stem, component)) {
        return component_kind(name.stem.substr(component.size()));
    }
    if (is_guidance_code(name.word(0))) {
        return {draw_guidance, 320, 240, 1, guidance_step_count(name.word(0)) * 2, 60};
    }
    const auto row = std::find_if(KINDS.begin(), KINDS.end(), [&name](const named_kind& known) {
        return begins_with(name.stem, known.beginning);
    });
    picture_kind kind = row != KINDS.end() ? row->kind : ICON;
    if (name.size == "s") {
        kind.pixel_scale = 2.0 / 3;
    } else if (name.size == "l") {
        kind.pixel_scale = 2;
    }
    return kind;
}

std::string draw_document(const picture_name& name, const glyph_book& book, double phase) {
    const picture_kind kind = kind_of(name);
    svg_canvas canvas(kind.width, kind.height);
    kind.draw(canvas, name, book, phase);
    return canvas.document(title_of(name));
}

} // namespace velarion
