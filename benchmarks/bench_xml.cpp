/*
 * What the XML reader with the collector costs beyond the toolkit's reader with a bare handler that does the
 * same collection: a message document and an image document of 10,000 entries each.
 */
#include "dvc_pnl_rmg_image_resource_xml_handler.h"
#include "dvc_pnl_rmg_language_resource_xml_handler.h"
#include "dvc_pnl_rmg_xml_parameter.h"
#include "dvc_pnl_utl_xml_parameter_handler.h"

#include <QFile>
#include <QXmlSimpleReader>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <functional>
#include <map>
#include <sstream>
#include <string>
#include <unistd.h>
#include <vector>

#pragma GCC diagnostic ignored "-Wdeprecated-declarations" // the peer is the SAX reader of both toolkits

namespace {

constexpr int ROUNDS = 15;
constexpr int ENTRIES = 10000;

volatile std::size_t g_sink; // keeps the work from being optimised away

/** Collects as plainly as the toolkit allows: its strings, its simplification, its conversion. */
class bare_handler : public QXmlDefaultHandler {
public:
    bool endElement(const QString&, const QString&, const QString& name) override {
        const std::string text = text_.simplified().toStdString();
        text_.clear();
        if (name == QLatin1String("message_data")) {
            messages.emplace(key_, index_);
        } else if (name == QLatin1String("implementation_id") ||
                   name == QLatin1String("implementation_filename")) {
            key_ = text;
        } else if (name == QLatin1String("message_table_index")) {
            index_ = std::atoi(text.c_str());
        } else if (name == QLatin1String("image_data")) {
            images.emplace(key_, value_);
        } else if (name == QLatin1String("image_filename")) {
            value_ = text;
        }
        return true;
    }
    bool characters(const QString& text) override {
        text_ += text;
        return true;
    }

    std::map<std::string, int> messages;
    std::map<std::string, std::string> images;

private:
    QString text_;
    std::string key_;
    std::string value_;
    int index_ = 0;
};

std::string document_of(const char* entry, const char* key, const char* value, const char* suffix) {
    std::ostringstream document;
    document << "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<resource>\n";
    for (int i = 0; i < ENTRIES; ++i) {
        const int number = 100000 + (i * 7919) % ENTRIES;
        document << "  <" << entry << ">\n    <" << key << ">panel_implementation_" << number << "</" << key
                 << ">\n    <" << value << ">" << number << suffix << "</" << value << ">\n  </" << entry
                 << ">\n";
    }
    document << "</resource>\n";
    return document.str();
}

double time_of(const std::function<std::size_t()>& round) {
    const auto start = std::chrono::steady_clock::now();
    g_sink = round();
    return std::chrono::duration<double, std::milli>(std::chrono::steady_clock::now() - start).count();
}

double median_of(std::vector<double>& times) {
    std::nth_element(times.begin(), times.begin() + ROUNDS / 2, times.end());
    return times[ROUNDS / 2];
}

std::size_t collect_bare(const char* path, std::size_t& entries) {
    QXmlSimpleReader reader;
    bare_handler handler;
    reader.setContentHandler(&handler);
    QFile file(QFile::decodeName(path));
    QXmlInputSource source(&file);
    reader.parse(&source);
    entries = handler.messages.size() + handler.images.size();
    return entries;
}

template <typename HANDLER> std::size_t collect(const char* path, std::size_t& entries) {
    velarion::dvc_pnl_rmg_xml_parameter collector;
    HANDLER handler(&collector);
    velarion::dvc_pnl_utl_xml_parameter_handler events;
    events.dvc_pnl_utl_execute(&handler, path);
    std::map<std::string, int> messages;
    std::map<std::string, std::string> images;
    collector.dvc_pnl_rmg_xml_set_language_contens(messages);
    collector.dvc_pnl_rmg_xml_set_image_contens(images);
    entries = messages.size() + images.size();
    return entries;
}

/** Both take turns, so that a change of the machine's speed meets both. */
template <typename HANDLER> int compare(const char* what, const std::string& document) {
    char path[] = "/tmp/bench-xml-XXXXXX";
    const int descriptor = mkstemp(path);
    FILE* const file = fdopen(descriptor, "wb");
    std::fwrite(document.data(), 1, document.size(), file);
    std::fclose(file);
    std::size_t entries = 0;
    std::size_t bare_entries = 0;
    std::vector<double> times;
    std::vector<double> bare_times;
    for (int i = 0; i < ROUNDS; ++i) {
        times.push_back(time_of([&] { return collect<HANDLER>(path, entries); }));
        bare_times.push_back(time_of([&] { return collect_bare(path, bare_entries); }));
    }
    unlink(path);
    const double time = median_of(times);
    const double bare = median_of(bare_times);
    std::printf("%-18s %7.2f ms  %5.2f x  the toolkit's reader with a bare handler (%.2f ms)\n", what, time,
                time / bare, bare);
    return entries == ENTRIES && bare_entries == ENTRIES ? 0 : 1;
}

} // namespace

int main() {
    const int messages_result = compare<velarion::dvc_pnl_rmg_language_resource_xml_handler>(
        "message document", document_of("message_data", "implementation_id", "message_table_index", ""));
    const int images_result = compare<velarion::dvc_pnl_rmg_image_resource_xml_handler>(
        "image document", document_of("image_data", "implementation_filename", "image_filename", ".png"));
    return messages_result + images_result;
}
