#include "scratch_catalogue.h"

#include "image_catalogue.h"
#include "message_catalogue.h"
#include "option_pack.h"

#include <sstream>

namespace {

std::string without(const std::string& prefix, std::string text) {
    for (std::size_t at = text.find(prefix); at != std::string::npos; at = text.find(prefix, at)) {
        text.erase(at, prefix.size());
    }
    return text;
}

} // namespace

scratch_catalogue::scratch_catalogue() {
    write("messages.tsv", "id\tname\trow\n1\tMSG_ONE\t2\n2\tMSG_TWO\t1\n");
    write("images.tsv", "id\tname\tfile\n1\tIMG_ONE\tone.png\n");
    for (const std::string language : STANDARD_LANGUAGE_NAMES) {
        write("texts/" + language + ".tsv", "row\ttext\n2\t" + language + "\n");
    }
    write_pack("86");
}

void scratch_catalogue::write_pack(const std::string& id, const std::string& properties,
                                   const std::string& texts) const {
    write("packs/" + id + "/pack.conf", properties);
    write("packs/" + id + "/texts.tsv", texts);
}

std::string scratch_catalogue::reports_of_reading(const std::string& pack_id) const {
    std::ostringstream output;
    diagnostics report(output);
    const message_catalogue messages = read_message_catalogue(path(), report);
    read_image_catalogue(path(), report);
    read_option_pack(path() + "/packs/" + pack_id, messages, report);
    return without(path() + "/", output.str());
}

process_result scratch_catalogue::run(const std::string& command,
                                      const std::vector<std::string>& arguments) const {
    std::vector<std::string> all = {command, "--catalogue", path(), "--output", folder_.path("out")};
    all.insert(all.end(), arguments.begin(), arguments.end());
    process_result result = run_compiler(all);
    result.errors = without(path() + "/", result.errors);
    return result;
}

process_result run_compiler(std::vector<std::string> arguments) {
    arguments.insert(arguments.begin(), RESOURCE_COMPILER);
    return run_process(arguments);
}
