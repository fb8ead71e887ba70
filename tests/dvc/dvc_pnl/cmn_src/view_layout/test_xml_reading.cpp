#include "dvc_pnl_utl_xml_parameter_handler.h"

#include "dvc_pnl_utl_xml_handler_base.h"
#include "dvc_pnl_utl_xml_sax_reader.h"
#include "fake_platform.h"
#include "xml_file.h"

#include <QXmlSimpleReader>

#include <gtest/gtest.h>

#include <functional>
#include <stdexcept>
#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>
#include <utility>

#pragma GCC diagnostic ignored "-Wdeprecated-declarations" // the SAX reader of both toolkits

using velarion::dvc_pnl_utl_xml_parameter_handler;
using event_names = std::vector<std::string>;

namespace {

constexpr int READ = 1;
constexpr int FAILURE = -65536;

/** Writes events down, "<name" for a start and "name>text" for an end, and stops at one when asked to. */
class event_list : public velarion::dvc_pnl_utl_xml_handler_base {
public:
    int dvc_pnl_utl_start_element(const std::string& name) override { return add("<" + name); }
    int dvc_pnl_utl_end_element(const std::string& name, const std::string& text) override {
        const std::function<void()> act = std::exchange(before_end, [] {});
        act();
        return add(name + ">" + text); // name and text are to outlive what was done
    }

    event_names events;
    std::string stop_at; ///< the event that gets another answer than 1
    int stop_answer = 0;
    std::function<void()> before_end = [] {}; ///< done once, before the next end is written down

private:
    int add(const std::string& event) {
        events.push_back(event);
        return event == stop_at ? stop_answer : 1;
    }
};

/** Writes down what the reader says, and keeps the ends of elements to itself. */
class raw_event_list : public dvc_pnl_utl_xml_parameter_handler {
public:
    bool startPrefixMapping(const QString& prefix, const QString& uri) override {
        return add(prefix + QLatin1String("=") + uri);
    }
    bool startElement(const QString& uri, const QString& local_name, const QString& qualified_name,
                      const QXmlAttributes& attributes) override {
        add(uri + QLatin1String("|") + local_name + QLatin1String("|") +
            attributes.value(QLatin1String("n"), QLatin1String("q")));
        return dvc_pnl_utl_xml_parameter_handler::startElement(uri, local_name, qualified_name, attributes);
    }
    bool endElement(const QString&, const QString&, const QString&) override { return true; }
    bool skippedEntity(const QString& name) override { return add(name); }

    event_names events;

private:
    bool add(const QString& event) {
        events.push_back(event.toUtf8().constData());
        return true;
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
        const std::vector<fake_call> calls = platform_.calls_of("emwGENTrcPrintf");
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

/** Their cost grows as the square. */
std::string entities(int count) {
    std::string all;
    for (int i = 0; i < count; ++i) {
        all += "<!ENTITY m" + std::to_string(i) + " 'x'>";
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

TEST_F(xml_reading, an_error_that_is_not_fatal_goes_to_the_debug_output_alone) {
    platform_.reset();
    output_.clear();
    EXPECT_FALSE(events_handler_.error(QXmlParseException(QLatin1String("a fault"), 4, 3)));
    EXPECT_EQ(output_, event_names{"XML Error lines:3 column:4 a fault"});
    EXPECT_TRUE(platform_.calls().empty());
}

TEST_F(xml_reading, text_before_a_stop_goes_in_front_of_the_next_parse) {
    document_.stop_at = "<b";
    EXPECT_EQ(read("<a> left  <b/></a>"), FAILURE);
    document_.stop_at.clear();
    EXPECT_EQ(read("<c><d>own</d>2</c>"), READ);
    EXPECT_EQ(document_.events, (event_names{"<c", "<d", "d>left own", "c>2"}));
}

TEST_F(xml_reading, an_end_leaves_its_simplified_text_in_the_buffer_until_the_document_handler_is_done) {
    event_list other;
    const xml_file inner("<n><m/></n>");
    document_.before_end = [&] { events_handler_.dvc_pnl_utl_execute(&other, inner.path()); };
    EXPECT_EQ(read("<a><b> one\n\n two </b><c>3</c></a>"), READ);
    EXPECT_EQ(document_.events, (event_names{"<a", "<b", "b>one two"}));
    EXPECT_EQ(other.events, (event_names{"<n", "<m", "m>one two", "n>", "<c", "c>3", "a>"}));

    document_.before_end = [&] { events_handler_.characters(QString::fromLatin1("lost")); };
    EXPECT_EQ(read("<a><b>1</b>2</a>"), READ);
    EXPECT_EQ(document_.events, (event_names{"<a", "<b", "b>1", "a>2"}));

    document_.before_end = [] { throw std::runtime_error("as a host may"); };
    events_handler_.characters(QString::fromUtf8(" \xC3\xA4  z "));
    EXPECT_THROW(events_handler_.endElement(QString(), QString(), QString()), std::runtime_error);
    events_handler_.characters(QString::fromLatin1("!"));
    EXPECT_TRUE(events_handler_.endElement(QString(), QString(), QString()));
    EXPECT_EQ(document_.events.back(), ">\xC3\xA4 z!");
}

TEST_F(xml_reading, a_subclass_sees_what_the_toolkit_says) {
    raw_event_list raw;
    const xml_file file("<p:a xmlns:p='n' p:q='1'>&none;<b xmlns='v'/></p:a>");
    EXPECT_EQ(raw.dvc_pnl_utl_execute(&document_, file.path()), READ);
    EXPECT_EQ(raw.events, (event_names{"p=n", "n|a|1", "none", "=v", "v|b|"}));
    EXPECT_EQ(document_.events, (event_names{"<p:a", "<b"}));
}

TEST_F(xml_reading, devices_and_pipes_are_like_missing_files) {
    const xml_file file("");
    const std::string pipe = file.path() + std::string(".pipe");
    ASSERT_EQ(mkfifo(pipe.c_str(), 0600), 0);
    for (const char* const path : {pipe.c_str(), "/dev/zero"}) {
        SCOPED_TRACE(path);
        EXPECT_EQ(read_file(path), FAILURE);
        EXPECT_TRUE(output_.empty());
        QXmlSimpleReader reader;
        EXPECT_FALSE(velarion::dvc_pnl_utl_xml_sax_reader(&reader).parseExecute(&events_handler_, path));
        expect_one_fatal_error("lines:1 column:1 unexpected end of file");
    }
    unlink(pipe.c_str());
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

TEST_F(xml_reading, nesting_is_counted_apart_from_the_callbacks) {
    const xml_file flat("<a>" + repeat("<b/>", 4200) + "</a>");
    raw_event_list raw;
    EXPECT_EQ(raw.dvc_pnl_utl_execute(&document_, flat.path()), READ);
    for (int i = 0; i < 4097; ++i) {
        ASSERT_TRUE(raw.startElement(QString(), QString(), QString(), QXmlAttributes())) << i;
    }
    const xml_file deep(repeat("<a>", 300000));
    QXmlSimpleReader reader;
    EXPECT_FALSE(velarion::dvc_pnl_utl_xml_sax_reader(&reader).parseExecute(nullptr, deep.path()));
    EXPECT_FALSE(velarion::dvc_pnl_utl_xml_sax_reader(&reader).parseExecute(&raw, deep.path()));
    EXPECT_EQ(reader.contentHandler(), &raw);
    EXPECT_EQ(reader.errorHandler(), &raw);
}

TEST_F(xml_reading, namespaces_have_a_limit_where_they_cost_the_reader_much) {
    std::string many;
    for (int i = 0; i < 33000; ++i) {
        many += " xmlns:p" + std::to_string(i) + "='u'";
    }
    const std::string few = many.substr(0, many.find(" xmlns:p32="));
    EXPECT_EQ(read("<a" + few + ">" + repeat("<b xmlns='' xmlns:p1='v'><c/></b>", 9000) + "</a>"), READ);
    EXPECT_EQ(read("<a><b" + many + "/>" + repeat("<c/>", 9000) + "</a>"), READ);
    EXPECT_EQ(read("<a" + many + ">\n<c/></a>"), FAILURE);
    expect_one_fatal_error("lines:2 column:3 error triggered by consumer");
}

TEST_F(xml_reading, entities_and_models_that_blow_up_end_the_document) {
    const std::string one = "<!ENTITY b 'x'>";
    const struct {
        const char* name;
        std::string declaration;
        std::string content;
        bool has_started;
    } rows[] = {
        {"many references", one, repeat("&b;", 4097), true},
        {"references in an entity, behind a comment, made of a character of 16 bits",
         "<!--> -> <a - ' -->" + one + "<!ENTITY c '>" + repeat("&#65574;b;", 1000) + "'>",
         repeat("&c;", 1000), true},
        {"references in an attribute", one, "<c d='" + repeat("&b;", 4097) + "'/>", true},
        {"references in a default", one + "<!ATTLIST c d CDATA '" + repeat("&b;", 4097) + "'>", "", false},
        {"parameter entities in an entity", "<!ENTITY % b 'x'><!ENTITY c '" + repeat("%b;", 4097) + "'>",
         "&c;", false},
        {"parameter entities in a parameter entity",
         "<!ENTITY % b '" + std::string(1000000, 'x') + "'><!ENTITY % c '" + repeat("%b;", 1000) + "'>", "",
         false},
        {"many entities", entities(4097), "&m0;", false},
        {"parentheses", "<!ELEMENT a " + repeat("(", 4097) + "b" + repeat(")", 4097) + ">", "", false},
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

TEST_F(xml_reading, the_limits_leave_harmless_documents_alone) {
    const std::string entity = "<!ENTITY e 'x'><!ENTITY lt '&#38;#60;'>";
    const struct {
        const char* name;
        std::string type;
        std::string content;
    } rows[] = {
        {"a document type alone", " SYSTEM 'a%20b&e;'", repeat("(&amp;%<!-- < -->", 20000)},
        {"percent signs that are text", "[<!-- 100% of the texts -->" + entity + "]",
         repeat("<b>%s</b>", 5000)},
        {"references in what is no text",
         "[" + entity + "<!--" + repeat("%e;&e;", 5000) + " '\" --><?p " + repeat("%e;&e;", 5000) +
             "?><!NOTATION n SYSTEM '" + repeat("%e;&e;", 5000) + "'>]",
         "<!--" + repeat("&e;", 5000) + "--><![CDATA[" + repeat("&e;", 5000) + "]]><?p " +
             repeat("&e;", 5000) + "?>"},
        {"characters", "[" + entity + "]",
         repeat("&lt;&#65;&#x41;&none;", 5000) + "<b c='" + repeat("&gt;", 5000) + "'/>"},
        {"as many uses as may be", "[" + entity + "]", repeat("&e;", 4096)},
        {"as many entities as may be", "[" + entities(4096) + "]", "&m0;"},
        {"a parameter entity", "[<!ENTITY % p '<!ENTITY q \"x\">'>%p;]", repeat("&q;&lt;", 4000)},
        {"elements", "[" + repeat("<!ELEMENT b (c)><!ATTLIST b d CDATA '(&lt;'>", 5000) + entity + "]",
         "&e;"},
        {"groups side by side", "[<!ELEMENT a (" + repeat("(b),", 5000) + "b)>" + entity + "]", "&e;"},
        {"groups in groups",
         "[<!ELEMENT a " + repeat("(", 4096) + "b" + repeat(")", 4096) + ">" + entity + "]", "&e;"},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.name);
        EXPECT_EQ(read("<!-- <!DOCTYPE a [<!ENTITY e ' --><?p <!ENTITY ?><!--> <b --><!DOCTYPE a" + row.type +
                       "><a>" + row.content + "</a>"),
                  READ);
    }
}

TEST_F(xml_reading, a_file_that_shrinks_ends_early) {
    const xml_file file("<a>" + repeat("<b/>\n", 100000) + "</a>");
    document_.before_end = [&] { EXPECT_EQ(truncate(file.path(), 0), 0); };
    EXPECT_EQ(read_file(file.path()), FAILURE);
    EXPECT_LT(document_.events.size(), 50000U);
    ASSERT_EQ(output_.size(), 1U);
    EXPECT_NE(output_[0].find("unexpected end of file"), std::string::npos) << output_[0];
}
