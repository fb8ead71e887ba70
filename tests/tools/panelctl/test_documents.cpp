#include "device.h"

#include <QJsonArray>
#include <QJsonObject>
#include <QRegularExpression>

#include <set>

namespace {

using documents = device;
using sample_documents = sample_catalogue_device;

constexpr char MESSAGES[] = "/mnt/sheetext/message_data.xml";
constexpr char STRINGS[] = "/mnt/sheetext/strings.xml";
constexpr char FIGURES_AND_ADDRESSES[] = "0123456789,.@"; // that every keyboard for letters types

/** The characters that a keyboard types, held ones and compositions included. */
std::set<QString> typed_by(const QJsonObject& board) {
    std::set<QString> characters;
    for (const QJsonValue layer : board["layers"].toArray()) {
        for (const QJsonValue row : layer["rows"].toArray()) {
            for (const QJsonValue key : row.toArray()) {
                characters.insert(key["text"].toString());
                for (const QChar held : key["held"].toString()) {
                    characters.insert(QString(held));
                }
            }
        }
    }
    const QJsonObject compositions = board["compositions"].toObject();
    for (auto it = compositions.begin(); it != compositions.end(); ++it) {
        characters.insert(it.value().toString());
        EXPECT_FALSE(it.key().contains(QRegularExpression(QStringLiteral("[0-9]")))) << "A4 stays A4";
    }
    return characters;
}

} // namespace

TEST_F(documents, resource_documents_of_the_device) {
    const QJsonObject messages = json_of({"xml", "messages", MESSAGES}).object();
    EXPECT_TRUE(messages["complete"].toBool());
    EXPECT_EQ(messages["entries"]["application_title_copy"].toInt(), 2);
    const QJsonObject images = json_of({"xml", "images", "/mnt/sheetext/image_data.xml", MESSAGES}).object();
    EXPECT_EQ(images["entries"]["navigation_home.svg"].toString(), "ico_globalnavi_home.svg");
    EXPECT_EQ(output_of({"strings", STRINGS, "service_hours", "terms"}),
              "Monday to Friday, 8:00 \xE2\x80\x93 18:00\nPaper & toner are part of the contract.\n");
}

TEST_F(documents, faults_have_their_exit_codes_and_places) {
    scratch_.write("bad.xml", "<r><message_data><implementation_id>A</implementation_id>"
                              "<message_table_index>7</message_table_index></message_data>\n</s>");
    const std::string bad = scratch_.path("bad.xml");
    const struct {
        std::vector<std::string> words;
        int exit_code;
        const char* output;
        const char* reason;
    } rows[] = {
        {{"xml", "messages", bad}, 3, "A  7\n", "lines:2 column:4 tag mismatch"},
        {{"xml", "messages", "none.xml"}, 3, "", "none.xml: there is no such file"},
        {{"xml", "images", "/mnt"}, 3, "", "unexpected end of file"},
        {{"strings", STRINGS, "welcome", "none"}, 1, "Welcome to the panel.\n", "no string \"none\""},
        {{"attribute", "1"}, 1, "", "language 1 has no attribute 1"},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(testing::PrintToString(row.words));
        const process_result result = run(row.words);
        EXPECT_EQ(result.exit_code, row.exit_code);
        EXPECT_EQ(result.output, row.output);
        EXPECT_NE(result.errors.find(row.reason), std::string::npos) << result.errors;
    }
}

TEST_F(sample_documents, fonts_and_attributes_follow_the_language) {
    set("option_language_1", 972);
    EXPECT_EQ(json_of({"font", "--language", "972"})["name"].toString(), "DejaVu Sans");
    EXPECT_EQ(output_of({"settings", "set-attribute", "49", "3", "YES"}), "");
    EXPECT_EQ(output_of({"settings", "set-attribute", "49", "4", "NO"}), "");
    set("panel_language", 49);
    EXPECT_EQ(output_of({"attribute", "3"}), "1\n");
    EXPECT_EQ(output_of({"attribute", "4", "--language", "49"}), "0\n");
}

TEST_F(sample_documents, every_language_has_a_keyboard_that_types_its_letters) {
    set("option_language_1", 86);
    set("option_language_2", 886);
    set("option_language_5", 972);
    set("destination", 3);
    const struct {
        int id;
        const char* letters;
    } rows[] = {
        {81, "あんぱがぬっー"},
        {1, "qzAZ09"},
        {49, "äöüßÄÖÜéâ"},
        {33, "àâçéèêëîïôùûœÿÉÈÇ"},
        {34, "ñÑáéíóúü¿¡"},
        {39, "àèéìòùÈ"},
        {31, "qëïéöüçĳ"},
        {7, "абвгдеёжзийклмнопрстуфхцчшщъыьэюяЁ"},
        {86, "āáǎàüǘ，。？；、“”《》"},
        {886, "ㄅㄆㄇㄈㄉㄊㄋㄌㄍㄎㄏㄐㄑㄒㄓㄔㄕㄖㄗㄘㄙㄧㄨㄩㄚㄛㄜㄝㄞㄟㄠㄡㄢㄣㄤㄥㄦˊˇˋ˙"},
        {972, "אבגדהוזחטיךכלםמןנסעףפץצקרשת₪״׳־\uFB2A\uFB4B"},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.id);
        const QJsonObject report = json_of({"keyboard", "--language", std::to_string(row.id)}).object();
        const QJsonArray keyboards = report["keyboards"].toArray();
        ASSERT_GE(keyboards.size(), 2);
        const std::set<QString> typed = typed_by(keyboards[0].toObject());
        for (const QChar letter : QString::fromUtf8(row.letters) + QLatin1String(FIGURES_AND_ADDRESSES)) {
            EXPECT_EQ(typed.count(QString(letter)), 1U) << QString(letter).toStdString();
        }
        EXPECT_TRUE(report["prohibitions"]["file_name"].toString().contains(QLatin1Char('/')));
    }
}

TEST_F(sample_documents, only_keyboards_that_are_there_are_shown) {
    set("option_language_1", 86);
    set("destination", 5);
    const QJsonDocument chinese = json_of({"keyboard", "--language", "86"});
    EXPECT_EQ(chinese["keyboards"].toArray().size(), 2);
    EXPECT_EQ(chinese["keyboards"][0]["file"].toString(), "/usr/local/vuk_plp/lib/keydata/qwerty.kbd");
    EXPECT_EQ(run({"keyboard", "--language", "44"}).exit_code, 1);
}
