#include "device.h"

#include <QJsonArray>
#include <QJsonObject>

#include <map>
#include <set>

namespace {

using documents = device;

const char MESSAGES[] = "/mnt/sheetext/message_data.xml";
const char IMAGES[] = "/mnt/sheetext/image_data.xml";
const char STRINGS[] = "/mnt/sheetext/strings.xml";

/** The characters that a keyboard types, held ones and compositions included. */
std::set<QString> typed_by(const QJsonObject& board) {
    std::set<QString> characters;
    for (const QJsonValue layer : board[QLatin1String("layers")].toArray()) {
        for (const QJsonValue row : layer[QLatin1String("rows")].toArray()) {
            for (const QJsonValue key : row.toArray()) {
                characters.insert(key[QLatin1String("text")].toString());
                for (const QChar held : key[QLatin1String("held")].toString()) {
                    characters.insert(QString(held));
                }
            }
        }
    }
    const QJsonObject compositions = board[QLatin1String("compositions")].toObject();
    for (const QJsonValue text : compositions) {
        characters.insert(text.toString());
    }
    return characters;
}

/** The narrowest and the widest row of the first layer, in keys. */
std::pair<double, double> row_widths(const QJsonObject& board) {
    std::pair<double, double> widths{1000, 0};
    for (const QJsonValue row : board[QLatin1String("layers")][0][QLatin1String("rows")].toArray()) {
        double width = 0;
        for (const QJsonValue key : row.toArray()) {
            width += key[QLatin1String("width")].toDouble();
        }
        widths = {std::min(widths.first, width), std::max(widths.second, width)};
    }
    return widths;
}

} // namespace

TEST_F(documents, resource_documents_of_the_device) {
    const QJsonObject messages = json_of({"xml", "messages", MESSAGES}).object();
    EXPECT_TRUE(messages[QLatin1String("complete")].toBool());
    EXPECT_EQ(messages[QLatin1String("entries")][QLatin1String("application_title_copy")].toInt(), 2);
    const QJsonObject images = json_of({"xml", "images", IMAGES, MESSAGES}).object();
    EXPECT_EQ(images[QLatin1String("entries")][QLatin1String("navigation_home.svg")].toString(),
              QLatin1String("ico_globalnavi_home.svg"));
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
        {{"xml", "texts", bad}, 2, "", "messages"},
        {{"xml", "messages"}, 2, "", "files"},
        {{"strings", STRINGS, "welcome", "none"}, 1, "Welcome to the panel.\n", "no string \"none\""},
        {{"strings", STRINGS}, 2, "", "names of strings"},
        {{"attribute", "1"}, 1, "", "language 1 has no attribute 1"},
        {{"attribute"}, 2, "", "one attribute number"},
        {{"font", "--language", "x"}, 2, "", "no language id"},
        {{"keyboard", "--language", "44"}, 1, nullptr, "no keyboard of language 44"},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(testing::PrintToString(row.words));
        const process_result result = run(row.words);
        EXPECT_EQ(result.exit_code, row.exit_code);
        if (row.output != nullptr) {
            EXPECT_EQ(result.output, row.output);
        }
        EXPECT_NE(result.errors.find(row.reason), std::string::npos) << result.errors;
    }
}

TEST_F(documents, fonts_and_attributes_follow_the_language) {
    set("option_language_1", 972);
    EXPECT_EQ(json_of({"font", "--language", "81"}).object()[QLatin1String("family")].toString(),
              QLatin1String("HeiseiKakuGothW5_JIS0213C"));
    EXPECT_EQ(json_of({"font", "--language", "972"}).object()[QLatin1String("name")].toString(),
              QLatin1String("DejaVu Sans"));
    EXPECT_EQ(output_of({"settings", "set-attribute", "49", "3", "YES"}), "");
    EXPECT_EQ(output_of({"settings", "set-attribute", "49", "4", "NO"}), "");
    set("panel_language", 49);
    EXPECT_EQ(output_of({"attribute", "3"}), "1\n");
    EXPECT_EQ(output_of({"attribute", "4", "--language", "49"}), "0\n");
}

TEST_F(documents, every_language_has_a_keyboard_that_types_its_letters) {
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
        {33, "àâçéèêëîïôùûœÿÉÈ"},
        {34, "ñÑáéíóúü¿¡"},
        {39, "àèéìòùÈ"},
        {31, "ëïéöüĳ"},
        {7, "абвгдеёжзийклмнопрстуфхцчшщъыьэюяЁ"},
        {86, "āáǎàüǘ，。"},
        {886, "ㄅㄆㄇㄈㄉㄊㄋㄌㄍㄎㄏㄐㄑㄒㄓㄔㄕㄖㄗㄘㄙㄧㄨㄩㄚㄛㄜㄝㄞㄟㄠㄡㄢㄣㄤㄥㄦˊˇˋ˙"},
        {972, "אבגדהוזחטיךכלםמןנסעףפץצקרשת₪"},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.id);
        const process_result result = run({"keyboard", "--language", std::to_string(row.id), "--json"});
        EXPECT_EQ(result.exit_code, 0);
        EXPECT_EQ(result.errors, "");
        const QJsonObject report = QJsonDocument::fromJson(QByteArray::fromStdString(result.output)).object();
        const QJsonArray keyboards = report[QLatin1String("keyboards")].toArray();
        ASSERT_GE(keyboards.size(), 2);
        const std::set<QString> typed = typed_by(keyboards[0].toObject());
        for (const QChar letter : QString::fromUtf8(row.letters)) {
            EXPECT_EQ(typed.count(QString(letter)), 1U) << QString(letter).toStdString();
        }
        for (const QJsonValue board : keyboards) {
            const std::pair<double, double> widths = row_widths(board.toObject());
            EXPECT_LE(widths.second - widths.first, 6)
                << board[QLatin1String("file")].toString().toStdString();
        }
        EXPECT_TRUE(report[QLatin1String("prohibitions")][QLatin1String("file_name")].toString().contains(
            QLatin1Char('/')));
    }
    EXPECT_TRUE(json_of({"keyboard", "--language",
                         "972"})[QLatin1String("keyboards")][0][QLatin1String("right_to_left")]
                    .toBool());
}

TEST_F(documents, chinese_without_its_destination_has_the_standard_keyboard_alone) {
    set("option_language_1", 86);
    set("destination", 5);
    const QJsonArray keyboards =
        json_of({"keyboard", "--language", "86"})[QLatin1String("keyboards")].toArray();
    ASSERT_EQ(keyboards.size(), 1);
    EXPECT_EQ(keyboards[0][QLatin1String("file")].toString(),
              QLatin1String("/usr/local/vuk_plp/lib/keydata/qwerty.kbd"));
}
