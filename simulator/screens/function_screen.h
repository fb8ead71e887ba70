#ifndef FUNCTION_SCREEN_H
#define FUNCTION_SCREEN_H

#include "choice_dialog.h"
#include "machine_job.h"
#include "panel_screen.h"
#include "setting_texts.h"

class QHBoxLayout;
class QVBoxLayout;

namespace velarion {

class message_label;
class panel_button;
class progress_bar;

/** A function of the machine: its settings on the near side, on the far side a card with what starts it. */
class function_screen : public panel_screen {
public:
    /** @param kind  of the jobs that it starts */
    function_screen(const panel_context& context, job_kind kind);

    /** Start, stop and reset. */
    bool take_key(int key) override;

protected:
    /** Where the settings stand. */
    QHBoxLayout& near_side() const { return *near_side_; }
    /** Top of the card: above what the machine does and the start button. */
    QVBoxLayout& card() const { return *card_; }

    /** Shows what the machine does, and whether the function can be started. */
    void show_state(bool can_start, const message_text& hint);

    virtual void start() = 0;

    /** A button that shows a setting and its value. */
    panel_button* make_setting(const char* name, const char* text, const char* picture);
    /** Lets the user choose a value of a setting. */
    template <class VALUE, class CHOSEN>
    void ask_value(const char* title, const std::vector<named_value<VALUE>>& values, VALUE current,
                   CHOSEN chosen) {
        std::vector<list_row> rows;
        for (const named_value<VALUE>& entry : values) {
            rows.push_back({QLatin1String(entry.name), {}, entry.text, {}, entry.value == current});
        }
        ask_choice(frame(), title, rows,
                   [values, chosen](int row) { chosen(values[static_cast<std::size_t>(row)].value); });
    }

private:
    job_kind kind_;
    QHBoxLayout* near_side_;
    QVBoxLayout* card_;
    message_label* hint_;
    progress_bar* progress_;
    panel_button* start_;
    panel_button* stop_;
};

} // namespace velarion

#endif
