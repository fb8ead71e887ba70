#include "message_table_writer.h"

#include "source_writer.h"
#include "text_pool.h"

namespace velarion {

namespace {

constexpr char PREAMBLE[] =
    "// Made by panel_resource_compiler from the message catalogue; changes are lost.\n"
    "#include \"dvc_pnl_rmg_message_table.h\"\n\n";

bool write_id_table(const message_catalogue& catalogue, const std::string& folder, std::string& fault) {
    source_writer writer(folder, "message_id_table.cpp");
    std::ostream& out = writer.stream();
    out << PREAMBLE << "const int dvc_pnl_rmg_imple_message_table_size = " << catalogue.messages.size()
        << ";\n\nconst DVC_PNL_RMG_IMPL_MESSAGE dvc_pnl_rmg_impl_message_table[] = {\n";
    for (const catalogue_message& message : catalogue.messages) {
        out << '{' << message.id << ", " << cpp_literal(message.name) << ", " << message.row << "},\n";
    }
    out << "};\n";
    return writer.finish(fault);
}

bool write_text_table(const message_catalogue& catalogue, const std::string& folder, std::string& fault) {
    source_writer writer(folder, "message_text_table.cpp");
    std::ostream& out = writer.stream();
    const text_pool pool(catalogue);
    out << PREAMBLE
        << "#pragma GCC diagnostic ignored \"-Woverlength-strings\" // one array, whose order is the "
           "memory's\n\n"
           "static const char T[] =\n";
    for (const std::string_view text : pool.texts()) {
        out << cpp_literal(std::string(text) + '\0') << '\n';
    }
    out << ";\n\n"
           "const char* const standard_language_message_table[DVC_PNL_RMG_STANDARD_MESSAGE_ROWS]"
           "[DVC_PNL_RMG_STANDARD_LANGUAGE_COUNT] = {\n";
    for (std::int32_t row = 0; row < NULL_ROW; ++row) {
        out << '{';
        for (const std::string& text : catalogue.rows[static_cast<std::size_t>(row)].texts) {
            out << "T + " << pool.place_of(text) << ", ";
        }
        out << "},\n";
    }
    out << "{},\n};\n";
    return writer.finish(fault);
}

} // namespace

bool write_message_tables(const message_catalogue& catalogue, const std::string& folder, std::string& fault) {
    return write_id_table(catalogue, folder, fault) && write_text_table(catalogue, folder, fault);
}

} // namespace velarion
