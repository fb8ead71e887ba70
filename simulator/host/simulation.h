#ifndef SIMULATION_H
#define SIMULATION_H

#include "machine_leds.h"
#include "machine_state.h"
#include "panel_frame.h"
#include "panel_hardware.h"
#include "panel_host.h"
#include "panel_languages.h"

#include <QObject>

#include <array>
#include <memory>
#include <vector>

namespace velarion {

/** A panel at work in this process: library, machine and display, made and destroyed in the order of a host.
 */
class simulation : public QObject, public panel_languages {
    Q_OBJECT

public:
    /** @param hardware  LEDs and keys, outlives it; null: a panel without a device service */
    explicit simulation(panel_hardware* hardware = nullptr);

    machine_state& machine() { return *machine_; }
    panel_frame& panel() { return *panel_; }

    /** Puts a machine and a display in the place of those that are there, as if it was switched off and on.
     */
    void start_anew();

    /** Pictures may have changed: the image manager is created anew, and what is shown is read again. */
    void reload_pictures();
    /** Packs or slots may have changed: the language resource is created anew, with the same selections. */
    void reload_languages();

    /** The selection that shows a language: standard ids by themselves, every other one as an option
     * language. */
    static language_choice choice_of(int language_id);

    std::vector<language_choice> languages() const override;
    language_choice standard_language() const override;
    language_choice preferred_language() const override;
    void choose_standard_language(const language_choice& choice) override;
    void choose_preferred_language(const language_choice& choice) override;

Q_SIGNALS:
    void language_changed();

private:
    void show_language();
    void light_leds();

    panel_host host_;
    absent_hardware absent_hardware_;
    panel_hardware& hardware_;
    mutable language_choice standard_{}; ///< the library tells only the selection that is active
    std::array<DVC_PNL_DEC_LED_STATUS_ID, LED_COUNT> lit_{}; ///< as the machine wanted them last
    std::unique_ptr<machine_state> machine_;
    std::unique_ptr<panel_frame> panel_;
};

} // namespace velarion

#endif
