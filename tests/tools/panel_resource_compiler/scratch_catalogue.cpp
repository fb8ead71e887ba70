#include "scratch_catalogue.h"

#include "message_catalogue.h"

#include <sstream>

scratch_catalogue::scratch_catalogue() {
    write("messages.tsv", "id\tname\trow\n1\tMSG_ONE\t2\n2\tMSG_TWO\t1\n");
    write("images.tsv", "id\tname\tfile\n1\tIMG_ONE\tone.png\n");
    for (const std::string language : STANDARD_LANGUAGE_NAMES) {
        write("texts/" + language + ".tsv", "row\ttext\n2\t" + language + "\n");
    }
}

std::string scratch_catalogue::reports_of(const std::function<void(diagnostics& report)>& work) const {
    std::ostringstream output;
    diagnostics report(output);
    work(report);
    return without_path(output.str());
}

std::string scratch_catalogue::reports_of_reading() const {
    return reports_of([&](diagnostics& report) { read_message_catalogue(path(), report); });
}

std::string scratch_catalogue::without_path(std::string text) const {
    const std::string prefix = path() + "/";
    for (std::size_t at = text.find(prefix); at != std::string::npos; at = text.find(prefix, at)) {
        text.erase(at, prefix.size());
    }
    return text;
}
