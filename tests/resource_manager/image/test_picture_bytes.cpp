#include "picture_file.h"
#include "svg_limits.h"
#include "svg_quick_scan.h"

#include <gtest/gtest.h>

#include <string>

namespace {

using namespace velarion;

QByteArray bytes_of(const std::string& text) {
    return QByteArray(text.data(), static_cast<int>(text.size()));
}

} // namespace

TEST(picture_bytes, of_a_plain_document_need_no_survey_and_all_others_do) {
    const std::string declaration = "<?xml version=\"1.0\" encoding=\"UTF-8\"?>";
    const QByteArray tag("<g>");
    const QByteArray attribute("a=");
    const struct {
        const char* shows;
        QByteArray document;
        bool is_harmless;
    } rows[] = {
        {"an element behind a declaration", bytes_of(declaration + "<svg/>"), true},
        {"dashes at the beginning", "dAsH", false},
        {"a declaration alone", bytes_of(declaration), false},
        {"a byte order mark", "\xEF\xBB\xBF<svg/>", false},
        {"parts of the words", "ash das h hre f ref hre", true},
        {"control characters for letters", "d\001sh H\x12\x45\x46", true},
        {"dashes at the end", "<g stroke-dash", false},
        {"a reference at the end", "<g xlink:href", false},
        {"a reference in both cases", "hrHReF", false},
        {"an entity", "<g>&", false},
        {"an escape", "\\<g>", false},
        {"a NUL", bytes_of(std::string("<g>\0</g>", 8)), false},
        {"a comment", "<!-- -->", true},
        {"a declaration of a type", "<!D", false},
        {"an instruction", "<g/><?", false},
        {"a mark at the end", "<g/><", false},
        {"half a comment at the end", "<g/><!", false},
        {"tags enough", tag.repeated(SVG_DEPTH_LIMIT), true},
        {"a tag too many", tag.repeated(SVG_DEPTH_LIMIT + 1), false},
        {"attributes enough", attribute.repeated(SVG_ATTRIBUTE_LIMIT), true},
        {"an attribute too many", attribute.repeated(SVG_ATTRIBUTE_LIMIT + 1), false},
        {"bytes enough", QByteArray(SVG_BYTES_LIMIT, ' '), true},
        {"a byte too many", QByteArray(SVG_BYTES_LIMIT + 1, ' '), false},
    };
    for (const auto& row : rows) {
        EXPECT_EQ(is_surely_harmless(row.document), row.is_harmless) << row.shows;
    }
}

/** The system's own files tell no size, as one that grows tells too small a one. */
TEST(picture_bytes, are_read_whole_or_not_at_all) {
    const QString path = QString::fromLatin1("/proc/version");
    QByteArray whole;
    ASSERT_TRUE(read_file(path, 1 << 20, whole));
    EXPECT_TRUE(whole.startsWith("Linux ") && whole.endsWith('\n'));
    QByteArray bytes;
    EXPECT_TRUE(read_file(path, whole.size(), bytes));
    EXPECT_EQ(bytes, whole);
    EXPECT_FALSE(read_file(path, whole.size() - 1, bytes));
    EXPECT_FALSE(read_file(path, 0, bytes));
}
