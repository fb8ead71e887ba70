#ifndef SETTING_TEXTS_H
#define SETTING_TEXTS_H

#include "machine_settings.h"
#include "message_text.h"
#include "supplies.h"

#include <QString>

#include <vector>

namespace velarion {

/** A value of a setting as it is named on the panel. */
template <class VALUE> struct named_value {
    VALUE value;
    const char* name; ///< of its row, for scripts
    message_text text;
};

/** The values that can be chosen of each setting, in the order in which they are offered. */
const std::vector<named_value<color_mode>>& color_modes();
const std::vector<named_value<copy_sides>>& sides_of_copies();
const std::vector<named_value<original_type>>& original_types();
const std::vector<named_value<int>>& ratios();
const std::vector<named_value<int>>& paper_choices();
const std::vector<named_value<file_format>>& file_formats();
const std::vector<named_value<int>>& resolutions();

/** @return the text of a value; that of the first one when it is not offered */
template <class VALUE>
const message_text& text_of(const std::vector<named_value<VALUE>>& values, VALUE value) {
    for (const named_value<VALUE>& entry : values) {
        if (entry.value == value) {
            return entry.text;
        }
    }
    return values.front().text;
}

message_text ratio_text(int ratio);
message_text density_text(int density);
QString size_name(paper_size size);

} // namespace velarion

#endif
