#include "build_subcommands.h"

namespace velarion {

std::vector<subcommand> build_subcommands() {
    return {
        {"check", "finds the faults of a catalogue", run_check_command},
        {"message-tables", "writes the sources of the message tables", run_message_tables_command},
        {"image-tables", "writes the source of the image table", run_image_tables_command},
        {"header", "writes a C++ header that names the ids of messages and images", run_header_command},
        {"pack", "writes an option language pack as it is to lie on a device", run_pack_command},
    };
}

} // namespace velarion
