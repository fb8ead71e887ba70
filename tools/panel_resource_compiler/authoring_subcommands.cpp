#include "authoring_subcommands.h"

#include "edit_commands.h"

namespace velarion {

std::vector<subcommand> authoring_subcommands() {
    return {
        {"find", "finds messages and pictures by text, name or id", run_find_command},
        {"add", "adds a message with its texts, or a picture", run_add_command},
        {"rename", "gives a message or a picture another name", run_rename_command},
        {"remove", "removes a message with its texts, or a picture", run_remove_command},
        {"sort", "brings the tables into ascending order", run_sort_command},
        {"figures", "brings DIR/figures.tsv up to date", run_figures_command},
        {"export", "writes the texts of a language as gettext PO or Qt Linguist TS", run_export_command},
        {"import", "takes the texts of a PO or TS file over", run_import_command},
        {"pseudo", "makes a pack of lengthened English texts, to try a panel with", run_pseudo_command},
        {"confirm", "notes that texts say what the English ones say", run_confirm_command},
        {"stats", "counts texts by language and screen area", run_stats_command},
        {"images", "finds the faults of pictures, and draws them on sheets", run_images_command},
        {"glyphs", "looks for the characters of texts in the panel's fonts", run_glyphs_command},
        {"fit", "looks for texts that do not fit where the panel shows them", run_fit_command},
    };
}

} // namespace velarion
