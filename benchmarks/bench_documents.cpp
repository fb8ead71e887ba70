/*
 * What the XML reader with a collector costs beside the toolkit's reader with a bare handler that does the
 * same collection, and beside expat; and what units cost beside the plain computation.
 *
 * DOCUMENT_ENTRIES says how many entries the documents have, 10000 when it is not set.
 */
#include "dvc_pnl_common_utility.h"
#include "dvc_pnl_rmg_language_resource_xml_handler.h"
#include "dvc_pnl_rmg_xml_parameter.h"
#include "dvc_pnl_utl_xml_parameter_handler.h"
#include "measured_cases.h"

#include <QFile>
#include <QTemporaryFile>
#include <QXmlSimpleReader>

#include <expat.h>

#include <charconv>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <map>
#include <sstream>
#include <stdexcept>
#include <string>
#include <string_view>

#pragma GCC diagnostic ignored "-Wdeprecated-declarations" // the floor is the SAX reader of both toolkits

namespace {

using velarion::add_case;
using velarion::dvc_pnl_common_utility;
using velarion::keep;

constexpr int ENTRIES = 10000;
constexpr int MANY = 1024;

/** Collects as plainly as the toolkit allows: its strings, its simplification, its conversion. */
class bare_handler : public QXmlDefaultHandler {
public:
    bool endElement(const QString&, const QString&, const QString& name) override {
        const std::string text = text_.simplified().toStdString();
        text_.clear();
        if (name == QLatin1String("message_data")) {
            messages.emplace(key_, index_);
        } else if (name == QLatin1String("implementation_id")) {
            key_ = text;
        } else if (name == QLatin1String("message_table_index")) {
            index_ = std::atoi(text.c_str());
        }
        return true;
    }
    bool characters(const QString& text) override {
        text_ += text;
        return true;
    }

    std::map<std::string, int> messages;

private:
    QString text_;
    std::string key_;
    int index_ = 0;
};

/** The same with expat, on UTF-8 throughout. */
struct expat_collector {
    std::map<std::string, int> messages;
    std::string text;
    std::string key;
    int index = 0;

    static void end_element(void* data, const char* element) {
        auto& self = *static_cast<expat_collector*>(data);
        const std::string_view name = element;
        const std::size_t first = self.text.find_first_not_of(" \n\t");
        const std::string word =
            first == std::string::npos
                ? std::string()
                : self.text.substr(first, self.text.find_last_not_of(" \n\t") - first + 1);
        self.text.clear();
        if (name == "message_data") {
            self.messages.emplace(self.key, self.index);
        } else if (name == "implementation_id") {
            self.key = word;
        } else if (name == "message_table_index") {
            self.index = std::atoi(word.c_str());
        }
    }
    static void characters(void* data, const char* text, int length) {
        static_cast<expat_collector*>(data)->text.append(text, static_cast<std::size_t>(length));
    }
};

std::string document_of(int entries) {
    std::ostringstream document;
    document << "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<resource>\n";
    for (int i = 0; i < entries; ++i) {
        const long long number = 1000000 + (i * 7919LL) % entries;
        document << "  <message_data>\n    <implementation_id>panel_implementation_" << number
                 << "</implementation_id>\n    <message_table_index>" << number
                 << "</message_table_index>\n  </message_data>\n";
    }
    document << "</resource>\n";
    return document.str();
}

std::size_t collect(const std::string& path) {
    velarion::dvc_pnl_rmg_xml_parameter collector;
    velarion::dvc_pnl_rmg_language_resource_xml_handler handler(&collector);
    velarion::dvc_pnl_utl_xml_parameter_handler events;
    events.dvc_pnl_utl_execute(&handler, path.c_str());
    std::map<std::string, int> messages;
    collector.dvc_pnl_rmg_xml_set_language_contens(messages);
    return messages.size();
}

std::size_t collect_bare(const std::string& path) {
    QXmlSimpleReader reader;
    bare_handler handler;
    reader.setContentHandler(&handler);
    QFile file(QFile::decodeName(path.c_str()));
    QXmlInputSource source(&file);
    reader.parse(&source);
    return handler.messages.size();
}

std::size_t collect_with_expat(const std::string& path) {
    std::ifstream file(path, std::ios::binary | std::ios::ate);
    std::string document(static_cast<std::size_t>(file.tellg()), '\0');
    file.seekg(0).read(&document[0], static_cast<std::streamsize>(document.size()));
    XML_Parser parser = XML_ParserCreate(nullptr);
    expat_collector collector;
    XML_SetUserData(parser, &collector);
    XML_SetElementHandler(parser, nullptr, expat_collector::end_element);
    XML_SetCharacterDataHandler(parser, expat_collector::characters);
    XML_Parse(parser, document.data(), static_cast<int>(document.size()), 1);
    XML_ParserFree(parser);
    return collector.messages.size();
}

void add_collection(const char* name, const std::string& path, std::size_t entries,
                    std::size_t (*collect_from)(const std::string&)) {
    if (collect_from(path) != entries) {
        throw std::runtime_error(std::string(name) + " collects another count of entries");
    }
    add_case(name, static_cast<int>(entries), [path, collect_from] { keep(collect_from(path)); });
}

void add_documents(const std::string& path, std::size_t entries) {
    add_collection("xml/ours", path, entries, collect);
    add_collection("xml/floor", path, entries, collect_bare);
    add_collection("xml/expat", path, entries, collect_with_expat);
}

int rounded_by_table(int dp) {
    return dvc_pnl_common_utility::dip2pixel(dp, dvc_pnl_common_utility::ROUNDING_ROUND);
}

/** The same computed by a call. */
[[gnu::noinline]] int rounded(int dp) {
    return static_cast<int>(std::round(dp * (9.0 / 7.0)));
}

template <typename FUNCTION> void add_dip2pixel(const char* name, FUNCTION dip2pixel) {
    for (int dp = 0; dp < MANY; ++dp) {
        if (dip2pixel(dp) != rounded_by_table(dp)) {
            throw std::runtime_error(std::string(name) + " computes something else");
        }
    }
    add_case(name, MANY, [dip2pixel] {
        int sum = 0;
        for (int dp = 0; dp < MANY; ++dp) {
            sum += dip2pixel(dp) & 1;
        }
        keep(static_cast<std::size_t>(sum));
    });
}

/** "10dp+4" read without the library: both numbers, the unit, the sum as text. */
std::string computed(const std::string& text) {
    int dp = 0;
    int px = 0;
    const char* const end = text.data() + text.size();
    const char* const unit = std::from_chars(text.data(), end, dp).ptr;
    std::from_chars(unit + 3, end, px);
    return std::to_string(dp * 9 / 7 + px);
}

void add_units() {
    add_dip2pixel("dip2pixel/ours", [](int dp) { return rounded_by_table(dp); });
    add_dip2pixel("dip2pixel/floor", [](int dp) { return rounded(dp); });
    add_case("pixeldip2pixel/ours", MANY, [text = std::string("10dp+4")] {
        for (int i = 0; i < MANY; ++i) {
            keep(dvc_pnl_common_utility::pixeldip2pixel(text, dvc_pnl_common_utility::ROUNDING_FLOOR).size());
        }
    });
    add_case("pixeldip2pixel/floor", MANY, [text = std::string("10dp+4")] {
        for (int i = 0; i < MANY; ++i) {
            keep(computed(text).size());
        }
    });
}

} // namespace

int main(int argc, char** argv) {
    try {
        const char* wanted = std::getenv("DOCUMENT_ENTRIES");
        const int entries = wanted ? std::atoi(wanted) : ENTRIES;
        QTemporaryFile file;
        file.open();
        const std::string document = document_of(entries);
        file.write(document.data(), static_cast<qint64>(document.size()));
        if (!file.flush()) {
            throw std::runtime_error("no temporary file can be written");
        }
        add_documents(file.fileName().toStdString(), static_cast<std::size_t>(entries));
        add_units();
        return velarion::run_cases(argc, argv);
    } catch (const std::exception& error) {
        std::fprintf(stderr, "bench_documents: %s\n", error.what());
        return 3;
    }
}
