#include "dvc_pnl_utl_xml_parameter_handler.h"
#include "dvc_pnl_utl_xml_sax_reader.h"
#include "fake_platform.h"
#include "xml_file.h"

#include <QXmlSimpleReader>

#include <gtest/gtest.h>

#include <sys/resource.h>

#pragma GCC diagnostic ignored "-Wdeprecated-declarations" // the SAX reader of both toolkits

using velarion::dvc_pnl_utl_xml_parameter_handler;
using event_names = std::vector<std::string>;

namespace {

const int READ = 1;
const int FAILURE = -65536;

class xml_reading : public testing::Test {
protected:
    void SetUp() override { platform_.reset(); }

    int read(const std::string& document) {
        const xml_file file(document);
        return events_handler_.dvc_pnl_utl_execute(&document_, file.path());
    }

    /** Both outputs of a failed parse, and nothing but them. */
    void expect_one_fatal_error(const std::string& text) {
        ASSERT_EQ(output_.lines().size(), 1U);
        EXPECT_EQ(output_.lines()[0], "XML Fatal Error " + text);
        const std::vector<FAKE_CALL> calls = platform_.calls();
        ASSERT_EQ(calls.size(), 1U);
        EXPECT_EQ(calls[0].function, "emwGENTrcPrintf");
        EXPECT_EQ(calls[0].numbers, (std::vector<std::int64_t>{0x5302, 0x102, 5}));
        EXPECT_EQ(calls[0].text.rfind("dvc_pnl_utl_xml_parameter_handler:", 0), 0U) << calls[0].text;
        const std::string end = ":fatalError:XML Fatal Error " + text + "\n";
        ASSERT_GE(calls[0].text.size(), end.size());
        EXPECT_EQ(calls[0].text.substr(calls[0].text.size() - end.size()), end);
    }

    void expect_silence() {
        EXPECT_TRUE(output_.lines().empty());
        EXPECT_TRUE(platform_.calls().empty());
    }

    fake_platform& platform_ = fake_platform_instance();
    debug_output output_;
    event_list document_;
    dvc_pnl_utl_xml_parameter_handler events_handler_;
};

std::string repeat(const std::string& text, int count) {
    std::string all;
    for (int i = 0; i < count; ++i) {
        all += text;
    }
    return all;
}

} // namespace

TEST_F(xml_reading, elements_and_their_texts) {
    const struct {
        const char* name;
        const char* document;
        event_names events;
    } rows[] = {
        {"empty elements", "<a><b/><c></c></a>", {"<a", "<b", "b>", "<c", "c>", "a>"}},
        {"white space", "<a>\r\n  one \t\n  two\v\n</a>\n", {"<a", "a>one two"}},
        {"white space alone", "<a>\n  <b> \n </b>\n</a>", {"<a", "<b", "b>", "a>"}},
        {"texts around a child", "<a>x<b>y</b>z</a>", {"<a", "<b", "b>xy", "a>z"}},
        {"blanks between runs", "<a>x <b> y</b></a>", {"<a", "<b", "b>x y", "a>"}},
        {"attributes, prefixes, namespaces",
         "<p:a xmlns:p='u' p:q='1'><b xmlns='v' r='2'>t</b></p:a>",
         {"<p:a", "<b", "b>t", "p:a>"}},
        {"sections, references, comments",
         "<!DOCTYPE a [<!ENTITY e 'ee'>]><a>1<![CDATA[<2>]]><!-- 3 -->&amp;&#65;&e;&none;<?p q?>4</a>",
         {"<a", "a>1<2>&Aee4"}},
        {"UTF-8",
         "<\xC3\xA4>\xE3\x81\x82\xC2\xA0\xE3\x80\x80\xF0\x9F\x98\x80 </\xC3\xA4>",
         {"<\xC3\xA4", "\xC3\xA4>\xE3\x81\x82 \xF0\x9F\x98\x80"}},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.name);
        document_.events.clear();
        EXPECT_EQ(read(row.document), READ);
        EXPECT_EQ(document_.events, row.events);
    }
    expect_silence();
}

TEST_F(xml_reading, encodings) {
    const std::string utf16("\xFF\xFE<\0a\0>\0\xE4\0<\0/\0a\0>\0", 18);
    const std::string nul_in_text("<a>x\0y</a>", 10);
    const struct {
        const char* name;
        std::string document;
        std::string text;
    } rows[] = {
        {"declared Latin-1", "<?xml version='1.0' encoding='ISO-8859-1'?><a>\xE4</a>", "\xC3\xA4"},
        {"UTF-16 with its mark", utf16, "\xC3\xA4"},
        {"no UTF-8", "<a>x\xFFy</a>", "x\xEF\xBF\xBDy"},
        {"an unknown encoding is taken for UTF-8", "<?xml version='1.0' encoding='x-none'?><a>\xC3\xA4</a>",
         "\xC3\xA4"},
        {"a NUL is a character", nul_in_text, std::string("x\0y", 3)},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.name);
        document_.events.clear();
        EXPECT_EQ(read(row.document), READ);
        EXPECT_EQ(document_.events, (event_names{"<a", "a>" + row.text}));
    }
}

TEST_F(xml_reading, failures_without_a_parse_say_nothing) {
    const xml_file file("<a/>");
    EXPECT_EQ(events_handler_.dvc_pnl_utl_execute(nullptr, file.path()), FAILURE);
    EXPECT_EQ(events_handler_.dvc_pnl_utl_execute(&document_, nullptr), FAILURE);
    EXPECT_EQ(events_handler_.dvc_pnl_utl_execute(&document_, "/tmp/panel-xml-none"), FAILURE);
    EXPECT_EQ(events_handler_.dvc_pnl_utl_execute(&document_, ""), FAILURE);
    EXPECT_TRUE(document_.events.empty());
    expect_silence();
}

TEST_F(xml_reading, faults_are_reported_with_their_place) {
    const struct {
        const char* name;
        std::string document;
        event_names events;
        const char* report;
    } rows[] = {
        {"mismatch",
         "<a>\n <b>t</b>\n <c></d>\n</a>",
         {"<a", "<b", "b>t", "<c"},
         "lines:3 column:8 tag mismatch"},
        {"end", "<a>\n<b>", {"<a", "<b"}, "lines:2 column:4 unexpected end of file"},
        {"empty file", "", {}, "lines:1 column:1 unexpected end of file"},
        {"no XML", "plain", {}, "lines:1 column:1 error occurred while parsing element"},
        {"NUL in a name",
         std::string("<a\0/>", 5),
         {},
         "lines:1 column:3 error occurred while parsing element"},
        {"UTF-16 that is none",
         "<?xml version='1.0' encoding='UTF-16'?><a/>",
         {},
         "lines:1 column:1 error occurred while parsing element"},
        {"entity of itself",
         "<!DOCTYPE a [<!ENTITY e 'x&e;'>]><a>&e;</a>",
         {"<a"},
         "lines:1 column:39 recursive entities"},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.name);
        platform_.reset();
        document_.events.clear();
        const debug_output own_lines;
        EXPECT_EQ(read(row.document), FAILURE);
        EXPECT_EQ(document_.events, row.events);
        expect_one_fatal_error(row.report);
    }
}

TEST_F(xml_reading, a_folder_is_an_empty_document) {
    EXPECT_EQ(events_handler_.dvc_pnl_utl_execute(&document_, "/tmp"), FAILURE);
    expect_one_fatal_error("lines:1 column:1 unexpected end of file");
}

TEST_F(xml_reading, the_document_handler_stops_at_either_event_with_any_other_answer) {
    const struct {
        const char* event;
        int answer;
        event_names events;
        const char* place;
    } rows[] = {
        {"<b", 0, {"<a", "<b"}, "lines:1 column:6"},
        {"b>1", 2, {"<a", "<b", "b>1"}, "lines:1 column:11"},
        {"<a", -1, {"<a"}, "lines:1 column:3"},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.event);
        platform_.reset();
        document_.events.clear();
        document_.stop_at = row.event;
        document_.stop_answer = row.answer;
        const debug_output own_lines;
        EXPECT_EQ(read("<a><b>1</b><c/></a>"), FAILURE);
        EXPECT_EQ(document_.events, row.events);
        expect_one_fatal_error(row.place + std::string(" error triggered by consumer"));
    }
}

TEST_F(xml_reading, text_before_a_stop_goes_in_front_of_the_next_parse) {
    document_.stop_at = "<b";
    EXPECT_EQ(read("<a> left  <b/></a>"), FAILURE);
    document_.stop_at.clear();
    document_.events.clear();
    EXPECT_EQ(read("<c><d>own</d>2</c>"), READ);
    EXPECT_EQ(document_.events, (event_names{"<c", "<d", "d>left own", "c>2"}));
}

TEST_F(xml_reading, the_handler_of_a_failed_call_is_the_one_that_counts_afterwards) {
    EXPECT_EQ(read("<a>"), FAILURE);
    EXPECT_TRUE(events_handler_.dvc_pnl_utl_execute(&document_, "/tmp/panel-xml-none") == FAILURE);
    event_list other;
    const xml_file file("<z/>");
    document_.events.clear();
    EXPECT_EQ(events_handler_.dvc_pnl_utl_execute(&other, file.path()), READ);
    EXPECT_EQ(other.events, (event_names{"<z", "z>"}));
    EXPECT_TRUE(document_.events.empty());
}

TEST_F(xml_reading, the_reader_alone_tells_whether_a_document_is_well_formed) {
    QXmlSimpleReader toolkit_reader;
    velarion::dvc_pnl_utl_xml_sax_reader reader(&toolkit_reader);
    const xml_file good("<a>1</a>");
    const xml_file bad("<a>1</b>");
    EXPECT_TRUE(reader.parseExecute(nullptr, good.path()));
    EXPECT_FALSE(reader.parseExecute(nullptr, bad.path()));
    expect_silence();
}

TEST_F(xml_reading, errors_and_warnings_end_a_parse_and_only_errors_are_shown) {
    const QXmlParseException fault(QString::fromLatin1("odd"), 7, 3);
    EXPECT_FALSE(events_handler_.warning(fault));
    EXPECT_TRUE(output_.lines().empty());
    EXPECT_FALSE(events_handler_.error(fault));
    EXPECT_EQ(output_.lines(), event_names{"XML Error lines:3 column:7 odd"});
    EXPECT_TRUE(platform_.calls().empty());
}

TEST_F(xml_reading, nesting_has_a_limit_in_text_and_entities) {
    const int deepest = dvc_pnl_utl_xml_parameter_handler::DEEPEST_ELEMENT;
    EXPECT_EQ(read(repeat("<a>", deepest) + repeat("</a>", deepest)), READ);
    EXPECT_EQ(document_.events.size(), 2U * 4096U);
    EXPECT_EQ(read("<a/>"), READ); // the depth starts anew
    expect_silence();

    document_.events.clear();
    EXPECT_EQ(read(repeat("<a>", 100000) + repeat("</a>", 100000)), FAILURE);
    EXPECT_EQ(document_.events.size(), 4096U);
    expect_one_fatal_error("lines:1 column:12291 error triggered by consumer");
    document_.events.clear();
    EXPECT_EQ(
        read("<!DOCTYPE a [<!ENTITY d '" + repeat("<x>", 1000) + "'>]><a>" + repeat("&d;", 100) + "</a>"),
        FAILURE);
    EXPECT_EQ(document_.events.size(), 4096U);
}

TEST_F(xml_reading, declarations_that_blow_up_end_the_document) {
    const std::string laughs = "<!ENTITY e0 'lol'><!ENTITY e1 '" + repeat("&e0;", 10) + "'><!ENTITY e2 '" +
                               repeat("&e1;", 10) + "'><!ENTITY e3 '" + repeat("&e2;", 10) +
                               "'><!ENTITY e4 '" + repeat("&e3;", 10) + "'><!ENTITY e5 '&e4;'>";
    const std::string large = "<!ENTITY b '" + std::string(4000, 'x') + "'>";
    std::string many;
    for (int i = 0; i < 5000; ++i) {
        many += "<!ENTITY m" + std::to_string(i) + " 'x'>"; // their cost grows as the square
    }
    const struct {
        const char* name;
        std::string declaration;
        std::string content;
        bool has_started;
    } rows[] = {
        {"entities of entities", laughs, "&e5;", false},
        {"many references to a large entity", large, repeat("&b;", 100000), true},
        {"references in an entity times references to it",
         "<!ENTITY % x '<!-- '>" + large + "<!ENTITY c '" + repeat("&b;", 1000) + "'>", repeat("&c;", 1000),
         false},
        {"the same behind a comment that hides it",
         "<!--> <a - ' -->" + large + "<!ENTITY c '>" + repeat("&b;", 1000) + "'>", repeat("&c;", 1000),
         true},
        {"many references in an attribute", large, "<c d='" + repeat("&b;", 100000) + "'/>", true},
        {"parameter entities in an entity",
         "<!ENTITY % b '" + std::string(4000, 'x') + "'><!ENTITY c '" + repeat("%b;", 100000) + "'>", "&c;",
         false},
        {"many entities", many, "&m0;", false},
        {"parentheses", "<!ELEMENT a " + repeat("(", 1000000) + "b" + repeat(")", 1000000) + ">", "", false},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.name);
        platform_.reset();
        document_.events.clear();
        const debug_output own_lines;
        EXPECT_EQ(read("<!DOCTYPE a [" + row.declaration + "]><a>" + row.content + "</a>"), FAILURE);
        EXPECT_EQ(document_.events.size(), row.has_started ? 1U : 0U);
        EXPECT_EQ(own_lines.lines().size(), 1U);
        EXPECT_EQ(platform_.count("emwGENTrcPrintf"), 1U);
    }
    rusage usage;
    ASSERT_EQ(getrusage(RUSAGE_SELF, &usage), 0);
    EXPECT_LT(usage.ru_maxrss, 1024 * 1024) << "kilobytes"; // each of them would take more, or the stack
}

TEST_F(xml_reading, the_limits_of_declarations_leave_ordinary_documents_alone) {
    EXPECT_EQ(read("<!DOCTYPE a><a>" + repeat("(&amp;%<!-- < -->", 20000) + "</a>"), READ);
    EXPECT_EQ(
        read("<!-- <!DOCTYPE a [<!ENTITY e ' --><a>" + repeat("<!-- <!ENTITY -->&amp;", 20000) + "</a>"),
        READ);
    EXPECT_EQ(read("<?p <!ENTITY ?><!--> <b --><!DOCTYPE a [<!ENTITY e '>'><!--\"-->]><a>" +
                   repeat("&e;&lt;(%", 2000) + "</a>"),
              READ);
    EXPECT_EQ(read("<!DOCTYPE a [<!ELEMENT a " + repeat("(", 1000) + "b" + repeat(")", 1000) +
                   "><!ENTITY e 'x'><!ENTITY % p '<!ELEMENT b ANY>'>%p;]><a>" + repeat("&e;", 40) + "</a>"),
              READ);
    EXPECT_EQ(document_.events.back(), "a>" + std::string(40, 'x'));
    expect_silence();
}

TEST_F(xml_reading, large_texts_arrive_whole_and_later_ones_are_their_own) {
    const std::string large(50 * 1000 * 1000, 'x');
    EXPECT_EQ(read("<a><b>" + large + "</b><c>1</c></a>"), READ);
    ASSERT_EQ(document_.events.size(), 6U);
    EXPECT_TRUE(document_.events[2] == "b>" + large);
    EXPECT_EQ(document_.events[4], "c>1");
}

TEST_F(xml_reading, a_file_that_shrinks_ends_early) {
    class shrinking : public event_list {
    public:
        int dvc_pnl_utl_start_element(const std::string& name) override {
            file->shrink_to(0);
            return event_list::dvc_pnl_utl_start_element(name);
        }
        const xml_file* file = nullptr;
    } document;
    const xml_file file("<a>" + repeat("<b/>\n", 100000) + "</a>");
    document.file = &file;
    EXPECT_EQ(events_handler_.dvc_pnl_utl_execute(&document, file.path()), FAILURE);
    EXPECT_LT(document.events.size(), 50000U);
    ASSERT_EQ(output_.lines().size(), 1U);
    EXPECT_NE(output_.lines()[0].find("unexpected end of file"), std::string::npos) << output_.lines()[0];
}
