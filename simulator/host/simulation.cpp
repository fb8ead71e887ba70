#include "simulation.h"

#include "dvc_pnl_rmg_language_resource.h"
#include "dvc_pnl_rmg_property.h"
#include "screen_table.h"

#include <QCoreApplication>
#include <QEvent>

namespace velarion {

namespace {

dvc_pnl_rmg_language_resource& language() {
    return *dvc_pnl_rmg_language_resource::dvc_pnl_rmg_get_instance();
}

} // namespace

simulation::simulation(panel_hardware* hardware)
    : hardware_(hardware ? *hardware : absent_hardware_) {
    connect(&hardware_, &panel_hardware::key_changed, this, [this](int key, bool is_pressed) {
        if (is_pressed) {
            panel_->take_key(key);
        }
    });
    start_anew();
}

void simulation::start_anew() {
    panel_.reset();
    machine_ = std::make_unique<machine_state>();
    panel_ = std::make_unique<panel_frame>(panel_services{*machine_, hardware_, *this}, all_screens());
    connect(machine_.get(), &machine_state::changed, this, &simulation::light_leds);
    lit_.fill(static_cast<DVC_PNL_DEC_LED_STATUS_ID>(led_state::UNKNOWN));
    light_leds();
}

/** Only what the machine wants otherwise than before: a screen may set LEDs too. */
void simulation::light_leds() {
    const auto leds = leds_of(*machine_);
    for (std::size_t led = 0; led < leds.size(); ++led) {
        if (leds[led] != lit_[led]) {
            hardware_.set_led(static_cast<int>(led), leds[led]);
        }
    }
    lit_ = leds;
}

void simulation::reload_pictures() {
    host_.start_images_anew();
    panel_->reload();
}

void simulation::reload_languages() {
    const language_choice standard = standard_language();
    const language_choice preferred = preferred_language();
    host_.start_languages_anew();
    language().dvc_pnl_rmg_set_standard_language(standard.language_id, standard.option_language_id);
    language().dvc_pnl_rmg_set_preferred_language(preferred.language_id, preferred.option_language_id);
    show_language();
}

language_choice simulation::choice_of(int language_id) {
    const int index = language().dvc_pnl_rmg_get_standard_language_index(language_id);
    if (index >= 0 || language_id == DVC_PNL_RMG_PROPERTY::LANGUAGE_ID_UNSET) {
        return {language_id, 0};
    }
    return {DVC_PNL_RMG_PROPERTY::LANGUAGE_ID_OPTION, language_id};
}

std::vector<language_choice> simulation::languages() const {
    std::vector<language_choice> all;
    const int* standard = language().dvc_pnl_rmg_get_standard_language_id_array();
    for (int i = 0; i < language().dvc_pnl_rmg_get_standard_language_number(); ++i) {
        all.push_back({standard[i], 0});
    }
    std::vector<int> options;
    language().dvc_pnl_rmg_get_option_language_id_array(options);
    for (const int id : options) {
        if (language().dvc_pnl_rmg_is_valid_option_language(id)) {
            all.push_back({DVC_PNL_RMG_PROPERTY::LANGUAGE_ID_OPTION, id});
        }
    }
    return all;
}

language_choice simulation::standard_language() const {
    language_choice active{};
    if (!language().dvc_pnl_rmg_get_active_language(active.language_id, active.option_language_id)) {
        standard_ = active;
    }
    return standard_;
}

language_choice simulation::preferred_language() const {
    language_choice active{};
    const bool is_preferred =
        language().dvc_pnl_rmg_get_active_language(active.language_id, active.option_language_id);
    return is_preferred ? active : language_choice{};
}

void simulation::choose_preferred_language(const language_choice& choice) {
    standard_language(); // asked for while the library still tells it

    language().dvc_pnl_rmg_set_preferred_language(choice.language_id, choice.option_language_id);
    show_language();
}

void simulation::choose_standard_language(const language_choice& choice) {
    language().dvc_pnl_rmg_set_standard_language(choice.language_id, choice.option_language_id);
    standard_ = choice;
    show_language();
}

void simulation::show_language() {
    QEvent change(QEvent::LanguageChange);
    QCoreApplication::sendEvent(panel_.get(), &change);
    Q_EMIT language_changed();
}

} // namespace velarion
