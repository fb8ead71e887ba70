#include "image_table_writer.h"

#include "source_writer.h"

namespace velarion {

bool write_image_table(const std::vector<catalogue_image>& images, const std::string& folder,
                       std::string& fault) {
    source_writer writer(folder, "image_name_table.cpp");
    std::ostream& out = writer.stream();
    out << "// Made by panel_resource_compiler from the image list; changes are lost.\n"
           "#include \"dvc_pnl_rmg_image_name_table.h\"\n\n"
        << "const int dvc_pnl_rmg_imple_image_name_table_size = " << images.size()
        << ";\n\nconst DVC_PNL_RMG_IMPL_IMAGE_NAME dvc_pnl_rmg_impl_image_name_table[] = {\n";
    for (const catalogue_image& image : images) {
        out << '{' << image.id << ", " << cpp_literal(image.name) << ", " << cpp_literal(image.file)
            << "},\n";
    }
    out << "};\n";
    return writer.finish(fault);
}

} // namespace velarion
