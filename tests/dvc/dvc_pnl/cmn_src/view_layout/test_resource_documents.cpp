#include "dvc_pnl_rmg_image_resource_xml_handler.h"
#include "dvc_pnl_rmg_language_resource_xml_handler.h"
#include "dvc_pnl_rmg_xml_parameter.h"
#include "dvc_pnl_rmg_xml_perform.h"
#include "dvc_pnl_utl_xml_parameter_handler.h"
#include "dvc_pnl_vwm_animation_request.h"
#include "xml_file.h"

#include <gtest/gtest.h>

using velarion::dvc_pnl_rmg_xml_parameter;
using velarion::dvc_pnl_rmg_xml_perform;
using messages = std::map<std::string, int>;
using images = std::map<std::string, std::string>;

namespace {

messages messages_of(dvc_pnl_rmg_xml_parameter& collector) {
    messages contents{{"what was there", 1}};
    collector.dvc_pnl_rmg_xml_set_language_contens(contents);
    return contents;
}

images images_of(dvc_pnl_rmg_xml_parameter& collector) {
    images contents{{"what was there", "x"}};
    collector.dvc_pnl_rmg_xml_set_image_contens(contents);
    return contents;
}

/** Reads a document into the collector through one of the two document handlers. */
template <typename HANDLER> int read(dvc_pnl_rmg_xml_parameter& collector, const std::string& document) {
    const xml_file file(document);
    HANDLER handler(&collector);
    velarion::dvc_pnl_utl_xml_parameter_handler events;
    return events.dvc_pnl_utl_execute(&handler, file.path());
}

const auto READ_MESSAGES = read<velarion::dvc_pnl_rmg_language_resource_xml_handler>;
const auto READ_IMAGES = read<velarion::dvc_pnl_rmg_image_resource_xml_handler>;

std::string message_entry(const std::string& id, const std::string& index) {
    return "<message_data><implementation_id>" + id + "</implementation_id><message_table_index>" + index +
           "</message_table_index></message_data>";
}

std::string message_of(dvc_pnl_rmg_xml_perform& strings, std::string id) {
    std::string text = "(none)";
    strings.setMessageID(id);
    strings.getMessage(text);
    return text;
}

} // namespace

TEST(resource_document, messages_keep_their_first_index_over_several_files) {
    dvc_pnl_rmg_xml_parameter collector;
    EXPECT_EQ(READ_MESSAGES(collector, "<resource_message><message_id>9</message_id>" +
                                           message_entry(" MSG  A ", "12") + message_entry("B", "3") +
                                           message_entry("B", "4") + "</resource_message>"),
              1);
    EXPECT_EQ(messages_of(collector), (messages{{"MSG A", 12}, {"B", 3}}));
    EXPECT_EQ(READ_IMAGES(collector, "<r>" + message_entry("B", "5") + message_entry("C", "6") +
                                         "<image_data><implementation_filename>f</implementation_filename>"
                                         "<image_filename>g.png</image_filename></image_data></r>"),
              1);
    EXPECT_EQ(messages_of(collector), (messages{{"MSG A", 12}, {"B", 3}, {"C", 6}}));
    EXPECT_EQ(images_of(collector), (images{{"f", "g.png"}}));
}

TEST(resource_document, an_entry_takes_what_it_lacks_from_the_one_before_and_from_the_file_before) {
    dvc_pnl_rmg_xml_parameter collector;
    READ_MESSAGES(collector, "<r><message_data/><message_data><implementation_id>A</implementation_id>"
                             "</message_data><message_data><message_table_index>7</message_table_index>"
                             "</message_data></r>");
    EXPECT_EQ(messages_of(collector), (messages{{"", 0}, {"A", 0}}));
    READ_MESSAGES(collector, "<r><message_data><implementation_id>B</implementation_id></message_data></r>");
    EXPECT_EQ(messages_of(collector), (messages{{"", 0}, {"A", 0}, {"B", 7}}));
    READ_IMAGES(collector,
                "<r><image_data><image_filename>x</image_filename></image_data>"
                "<image_data><implementation_filename>f</implementation_filename></image_data></r>");
    EXPECT_EQ(images_of(collector), (images{{"", "x"}, {"f", "x"}}));
}

TEST(resource_document, index_texts_are_read_alike_on_every_word_size) {
    const struct {
        const char* text;
        int index;
    } rows[] = {
        {"42", 42},
        {"12abc", 12},
        {"abc", 0},
        {"", 0},
        {"-3", -3},
        {"+5", 5},
        {"- 5", 0},
        {"0x10", 0},
        {"010", 10},
        {"2147483647", 2147483647},
        {"2147483648", 2147483647},
        {"4294967297", 2147483647},
        {"-2147483648", -2147483647 - 1},
        {"-2147483649", -2147483647 - 1},
        {"99999999999999999999", 2147483647},
        {"-99999999999999999999", -2147483647 - 1},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.text);
        dvc_pnl_rmg_xml_parameter collector;
        READ_MESSAGES(collector, "<r>" + message_entry("A", row.text) + "</r>");
        EXPECT_EQ(messages_of(collector), (messages{{"A", row.index}}));
    }
}

TEST(resource_document, names_outside_the_vocabulary_change_nothing) {
    dvc_pnl_rmg_xml_parameter collector;
    const std::string names[] = {
        "resource_message", "message_id",    "image_id", "Message_data",
        "message_data ",    "message_dat",   "",         std::string("image_data\0", 11),
        "image_data2",      "p:message_data"};
    for (const std::string& name : names) {
        collector.dvc_pnl_rmg_xml_end_callback(name, "1");
    }
    EXPECT_TRUE(messages_of(collector).empty());
    EXPECT_TRUE(images_of(collector).empty());
}

TEST(resource_document, what_stands_before_a_fault_is_collected) {
    const debug_output silence;
    dvc_pnl_rmg_xml_parameter collector;
    EXPECT_EQ(READ_MESSAGES(collector, "<r>" + message_entry("A", "1") + message_entry("B", "2") + "</s>"),
              -65536);
    EXPECT_EQ(messages_of(collector), (messages{{"A", 1}, {"B", 2}}));
}

TEST(string_document, the_first_text_of_a_name_stays_and_enclosing_ends_are_dropped) {
    dvc_pnl_rmg_xml_perform strings;
    EXPECT_EQ(strings.dvc_pnl_rmg_start_element("resources", {{"name", "not a string"}}), 1);
    EXPECT_EQ(strings.dvc_pnl_rmg_start_element("other", {}), 1);
    EXPECT_EQ(strings.dvc_pnl_rmg_end_element("other", "before any name"), 1);
    strings.dvc_pnl_rmg_start_element("string", {{"name", "A"}, {"more", "1"}});
    strings.dvc_pnl_rmg_end_element("string", "a");
    strings.dvc_pnl_rmg_start_element("string", {{"Name", "X"}});
    strings.dvc_pnl_rmg_end_element("string", "no name: dropped under A");
    strings.dvc_pnl_rmg_start_element("string", {{"name", "B"}});
    strings.dvc_pnl_rmg_end_element("string", "b");
    strings.dvc_pnl_rmg_start_element("string", {{"name", "A"}});
    strings.dvc_pnl_rmg_end_element("string", "again");
    strings.dvc_pnl_rmg_end_element("resources", "end");
    EXPECT_EQ(message_of(strings, "A"), "a");
    EXPECT_EQ(message_of(strings, "B"), "b");
    EXPECT_EQ(message_of(strings, ""), "before any name");
    EXPECT_EQ(message_of(strings, "X"), "(none)");
}

TEST(animation_request, keeps_any_number) {
    velarion::dvc_pnl_vwm_animation_request request;
    EXPECT_EQ(request.dvc_pnl_vwm_type(), 0);
    EXPECT_EQ(request.dvc_pnl_vwm_direction(), 0);
    const auto type = static_cast<velarion::DVC_PNL_VWM_ANIMATION_TYPE>(-7);
    const auto direction = static_cast<velarion::DVC_PNL_VWM_ANIMATION_DIRECTION>(0x7fffffff);
    request = velarion::dvc_pnl_vwm_animation_request(type, direction);
    EXPECT_EQ(request.dvc_pnl_vwm_type(), -7);
    EXPECT_EQ(request.dvc_pnl_vwm_direction(), 0x7fffffff);
    request.dvc_pnl_vwm_set_direction(velarion::DVC_PNL_VWM_ANIMATION_DIRECTION_DEFAULT);
    EXPECT_EQ(request.dvc_pnl_vwm_type(), -7);
    EXPECT_EQ(request.dvc_pnl_vwm_direction(), 0);
}
