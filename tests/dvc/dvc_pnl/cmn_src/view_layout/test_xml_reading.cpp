#include "dvc_pnl_utl_xml_parameter_handler.h"

#include "dvc_pnl_utl_xml_handler_base.h"
#include "fake_platform.h"
#include "xml_file.h"

#include <gtest/gtest.h>

#include <sys/resource.h>
#include <unistd.h>

using velarion::dvc_pnl_utl_xml_parameter_handler;
using event_names = std::vector<std::string>;

namespace {

const int READ = 1;
const int FAILURE = -65536;

/** Writes events down, "<name" for a start and "name>text" for an end, and stops at one when asked to. */
class event_list : public velarion::dvc_pnl_utl_xml_handler_base {
public:
    int dvc_pnl_utl_start_element(const std::string& name) override { return add("<" + name); }
    int dvc_pnl_utl_end_element(const std::string& name, const std::string& text) override {
        return add(name + ">" + text);
    }

    event_names events;
    std::string stop_at; ///< the event that gets another answer than 1
    int stop_answer = 0;
    std::string emptied_file; ///< loses its contents at every event

private:
    int add(const std::string& event) {
        EXPECT_EQ(emptied_file.empty() ? 0 : truncate(emptied_file.c_str(), 0), 0);
        events.push_back(event);
        return event == stop_at ? stop_answer : 1;
    }
};

class xml_reading : public testing::Test {
protected:
    /** Success is silent, a failure of the parse is not. */
    int read(const std::string& document) {
        const xml_file file(document);
        const int result = read_file(file.path());
        EXPECT_EQ(output_.empty(), result == READ);
        EXPECT_EQ(platform_.calls().empty(), result == READ);
        return result;
    }

    int read_file(const char* path) {
        platform_.reset();
        output_.clear();
        document_.events.clear();
        return events_handler_.dvc_pnl_utl_execute(&document_, path);
    }

    /** Both outputs of a failed parse, and nothing but them. */
    void expect_one_fatal_error(const std::string& text) {
        EXPECT_EQ(output_, event_names{"XML Fatal Error " + text});
        const std::vector<FAKE_CALL> calls = platform_.calls_of("emwGENTrcPrintf");
        ASSERT_EQ(calls.size(), 1U);
        EXPECT_EQ(calls[0].numbers, (std::vector<std::int64_t>{0x5302, 0x102, 5}));
        EXPECT_EQ(calls[0].format, "%s:%d:%s:XML Fatal Error lines:%d column:%d %s\n");
        EXPECT_EQ(calls[0].text.rfind("dvc_pnl_utl_xml_parameter_handler:", 0), 0U) << calls[0].text;
        const std::size_t end = calls[0].text.find(":fatalError:");
        EXPECT_EQ(calls[0].text.substr(end), ":fatalError:XML Fatal Error " + text + "\n");
    }

    fake_platform& platform_ = fake_platform_instance();
    event_names& output_ = debug_output();
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
        std::string document;
        event_names events;
    } rows[] = {
        {"empty elements", "<a><b/><c></c></a>", {"<a", "<b", "b>", "<c", "c>", "a>"}},
        {"white space", "<a>\r\n  one \t\n  two\v\n</a>\n", {"<a", "a>one two"}},
        {"texts around a child", "<a>x<b>y</b>z</a>", {"<a", "<b", "b>xy", "a>z"}},
        {"blanks between runs", "<a>x <b> y</b></a>", {"<a", "<b", "b>x y", "a>"}},
        {"a long text behind which memory is given back",
         "<a><b>" + std::string(100000, 'x') + "</b><c>1</c></a>",
         {"<a", "<b", "b>" + std::string(100000, 'x'), "<c", "c>1", "a>"}},
        {"attributes, prefixes, namespaces",
         "<p:a xmlns:p='u' p:q='1'><b xmlns='v' r='2'>t</b></p:a>",
         {"<p:a", "<b", "b>t", "p:a>"}},
        {"sections, references, comments",
         "<!DOCTYPE a [<!ENTITY e 'ee'>]><a>1<![CDATA[<2>]]><!-- 3 -->&amp;&#65;&e;&none;<?p q?>4</a>",
         {"<a", "a>1<2>&Aee4"}},
        {"UTF-8",
         "<\xC3\xA4>\xE3\x81\x82\xC2\xA0\xE3\x80\x80\xF0\x9F\x98\x80 </\xC3\xA4>",
         {"<\xC3\xA4", "\xC3\xA4>\xE3\x81\x82 \xF0\x9F\x98\x80"}},
        {"no UTF-8", "<a>x\xFFy</a>", {"<a", "a>x\xEF\xBF\xBDy"}},
        {"a NUL is a character", std::string("<a>x\0y</a>", 10), {"<a", std::string("a>x\0y", 5)}},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.name);
        EXPECT_EQ(read(row.document), READ);
        EXPECT_EQ(document_.events, row.events);
    }
}

TEST_F(xml_reading, failures_without_a_parse_say_nothing) {
    EXPECT_EQ(read_file(nullptr), FAILURE);
    EXPECT_EQ(read_file("/tmp/panel-xml-none"), FAILURE);
    EXPECT_EQ(read_file(""), FAILURE);
    EXPECT_EQ(events_handler_.dvc_pnl_utl_execute(nullptr, "/tmp"), FAILURE);
    EXPECT_TRUE(output_.empty());
    EXPECT_TRUE(platform_.calls().empty());
}

TEST_F(xml_reading, faults_and_stops_are_reported_with_their_place) {
    const char* const no_element = "error occurred while parsing element";
    const char* const stopped = "error triggered by consumer";
    const struct {
        std::string document;
        event_names events;
        const char* place;
        std::string fault;
        int answer; // to the last event
    } rows[] = {
        {"<a>\n <b>t</b>\n <c></d>\n</a>", {"<a", "<b", "b>t", "<c"}, "lines:3 column:8", "tag mismatch", 1},
        {"<a>\n<b>", {"<a", "<b"}, "lines:2 column:4", "unexpected end of file", 1},
        {"", {}, "lines:1 column:1", "unexpected end of file", 1},
        {std::string("<a\0/>", 5), {}, "lines:1 column:3", no_element, 1},
        {"<?xml version='1.0' encoding='UTF-16'?><a/>", {}, "lines:1 column:1", no_element, 1},
        {"<!DOCTYPE a [<!ENTITY e 'x&e;'>]><a>&e;</a>", {"<a"}, "lines:1 column:39", "recursive entities", 1},
        {"<a><b>1</b><c/></a>", {"<a"}, "lines:1 column:3", stopped, -1},
        {"<a><b>1</b><c/></a>", {"<a", "<b"}, "lines:1 column:6", stopped, 0},
        {"<a><b>1</b><c/></a>", {"<a", "<b", "b>1"}, "lines:1 column:11", stopped, 2},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.document);
        document_.stop_at = row.events.empty() ? "" : row.events.back();
        document_.stop_answer = row.answer;
        EXPECT_EQ(read(row.document), FAILURE);
        EXPECT_EQ(document_.events, row.events);
        expect_one_fatal_error(row.place + (" " + row.fault));
    }
    EXPECT_EQ(read_file("/tmp"), FAILURE);
    expect_one_fatal_error("lines:1 column:1 unexpected end of file");
}

TEST_F(xml_reading, text_before_a_stop_goes_in_front_of_the_next_parse) {
    document_.stop_at = "<b";
    EXPECT_EQ(read("<a> left  <b/></a>"), FAILURE);
    document_.stop_at.clear();
    EXPECT_EQ(read("<c><d>own</d>2</c>"), READ);
    EXPECT_EQ(document_.events, (event_names{"<c", "<d", "d>left own", "c>2"}));
}

TEST_F(xml_reading, nesting_has_a_limit_in_text_and_entities) {
    EXPECT_EQ(read(repeat("<a>", 4096) + repeat("</a>", 4096)), READ);
    EXPECT_EQ(read("<a/>"), READ); // the depth starts anew
    EXPECT_EQ(read(repeat("<a>", 4097) + repeat("</a>", 4097)), FAILURE);
    EXPECT_EQ(document_.events.size(), 4096U);
    expect_one_fatal_error("lines:1 column:12291 error triggered by consumer");
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
         "<!--> -> <a - ' -->" + large + "<!ENTITY c '>" + repeat("&b;", 1000) + "'>", repeat("&c;", 1000),
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
        EXPECT_EQ(read("<!DOCTYPE a [" + row.declaration + "]><a>" + row.content + "</a>"), FAILURE);
        EXPECT_EQ(document_.events.size(), row.has_started ? 1U : 0U);
        EXPECT_EQ(output_.size(), 1U);
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
}

TEST_F(xml_reading, a_file_that_shrinks_ends_early) {
    const xml_file file("<a>" + repeat("<b/>\n", 100000) + "</a>");
    document_.emptied_file = file.path();
    EXPECT_EQ(read_file(file.path()), FAILURE);
    EXPECT_LT(document_.events.size(), 50000U);
    ASSERT_EQ(output_.size(), 1U);
    EXPECT_NE(output_[0].find("unexpected end of file"), std::string::npos) << output_[0];
}
