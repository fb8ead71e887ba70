#include "scratch_catalogue.h"

scratch_catalogue::scratch_catalogue() {
    write("messages.tsv", "id\tname\trow\n1\tMSG_ONE\t2\n2\tMSG_TWO\t1\n");
    write("images.tsv", "id\tname\tfile\n1\tIMG_ONE\tone.png\n");
    for (const std::string language : {"ja", "en", "de", "fr", "es", "it", "nl", "ru"}) {
        write("texts/" + language + ".tsv", "row\ttext\n2\t" + language + "\n");
    }
    write_pack("86");
}

void scratch_catalogue::write_pack(const std::string& id, const std::string& properties,
                                   const std::string& texts) const {
    write("packs/" + id + "/pack.conf", properties);
    write("packs/" + id + "/texts.tsv", texts);
}

process_result scratch_catalogue::run(const std::string& command,
                                      const std::vector<std::string>& arguments) const {
    const std::string folder = folder_.path("catalogue");
    std::vector<std::string> all = {RESOURCE_COMPILER, command, "--catalogue", folder};
    if (command == "message-tables" || command == "image-tables" || command == "pack") {
        all.insert(all.end(), {"--output", folder_.path("out")});
    }
    all.insert(all.end(), arguments.begin(), arguments.end());
    process_result result = run_process(all);
    for (std::size_t at = 0; (at = result.errors.find(folder + '/', at)) != std::string::npos;) {
        result.errors.erase(at, folder.size() + 1);
    }
    const std::string note = "the texts are looked at when the tables can be read\n";
    if (const std::size_t at = result.errors.find(note); at != std::string::npos) {
        result.errors.erase(at, note.size());
    }
    return result;
}
