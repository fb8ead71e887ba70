#include "dvc_pnl_rmg_image_resource_xml_handler.h"
#include "dvc_pnl_rmg_language_resource_xml_handler.h"
#include "dvc_pnl_rmg_xml_parameter.h"
#include "dvc_pnl_rmg_xml_perform.h"
#include "dvc_pnl_utl_xml_parameter_handler.h"
#include "xml_file.h"

#include <gtest/gtest.h>

using namespace velarion;
using message_handler = dvc_pnl_rmg_language_resource_xml_handler;
using image_handler = dvc_pnl_rmg_image_resource_xml_handler;
using messages = std::map<std::string, int>;
using images = std::map<std::string, std::string>;

namespace {

class resource_document : public testing::Test {
protected:
    /** Reads a document into the collector through one of the two document handlers. */
    template <typename HANDLER> int read(const std::string& document) {
        const xml_file file(document);
        HANDLER handler(&collector_);
        dvc_pnl_utl_xml_parameter_handler events;
        return events.dvc_pnl_utl_execute(&handler, file.path());
    }
    messages messages_now() {
        messages contents{{"what was there", 1}};
        collector_.dvc_pnl_rmg_xml_set_language_contens(contents);
        return contents;
    }

    dvc_pnl_rmg_xml_parameter collector_;
};

} // namespace

TEST_F(resource_document, an_entry_takes_what_it_lacks_from_the_one_before_and_the_first_of_an_id_stays) {
    EXPECT_EQ(read<message_handler>(
                  "<r><message_id>9</message_id>"
                  "<message_data><implementation_id> MSG  A </implementation_id>"
                  "<message_table_index>12</message_table_index></message_data>"
                  "<message_data><message_table_index>3</message_table_index></message_data></r>"),
              1);
    EXPECT_EQ(messages_now(), (messages{{"MSG A", 12}}));
    EXPECT_EQ(read<image_handler>("<r><message_data><implementation_id>B</implementation_id></message_data>"
                                  "<image_data><image_filename>x</image_filename></image_data><image_data>"
                                  "<implementation_filename>f</implementation_filename></image_data></s>"),
              -65536);
    EXPECT_EQ(messages_now(), (messages{{"MSG A", 12}, {"B", 3}})); // what B lacks is as it was before
    images contents{{"what was there", "x"}};
    collector_.dvc_pnl_rmg_xml_set_image_contens(contents);
    EXPECT_EQ(contents, (images{{"", "x"}, {"f", "x"}}));
}

TEST_F(resource_document, index_texts_are_read_alike_on_every_word_size) {
    const int most = 2147483647;
    const messages rows = {{"12abc", 12},
                           {"", 0},
                           {"- 5", 0},
                           {"0x10", 0},
                           {"010", 10},
                           {"4294967297", most},
                           {"-2147483648", -most - 1},
                           {"-2147483649", -most - 1},
                           {"99999999999999999999", most}};
    for (const auto& row : rows) {
        collector_.dvc_pnl_rmg_xml_end_callback("implementation_id", row.first);
        collector_.dvc_pnl_rmg_xml_end_callback("message_table_index", row.first);
        collector_.dvc_pnl_rmg_xml_end_callback("message_data", "");
    }
    EXPECT_EQ(messages_now(), rows);
}

TEST(string_document, the_first_text_of_a_name_stays_and_enclosing_ends_are_dropped) {
    const struct {
        const char* element;
        std::map<std::string, std::string> attributes;
        const char* text;
    } rows[] = {
        {"other", {{"name", "X"}}, "before any name"},
        {"string", {{"name", "A"}, {"more", "1"}}, "a"},
        {"string", {{"Name", "X"}}, "no name: dropped under A"},
        {"string", {{"name", "B"}}, "b"},
        {"string", {{"name", "A"}}, "again"},
    };
    dvc_pnl_rmg_xml_perform strings;
    for (const auto& row : rows) {
        EXPECT_EQ(strings.dvc_pnl_rmg_start_element(row.element, row.attributes), 1);
        EXPECT_EQ(strings.dvc_pnl_rmg_end_element(row.element, row.text), 1);
    }
    const images expected = {{"", "before any name"}, {"A", "a"}, {"B", "b"}, {"X", "kept"}};
    for (const auto& row : expected) {
        std::string id = row.first;
        std::string text = "kept";
        strings.setMessageID(id);
        strings.getMessage(text);
        EXPECT_EQ(text, row.second) << id;
    }
}
