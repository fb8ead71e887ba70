#include "dvc_pnl_rmg_language_resource.h"
#include "filled_rows.h"
#include "glyph_check.h"
#include "panel_findings.h"
#include "panel_fonts.h"
#include "panel_host.h"
#include "panel_inspection.h"
#include "panel_view.h"
#include "picture_block.h"
#include "picture_requests.h"
#include "screen_index.h"
#include "simulation.h"
#include "theme.h"
#include "units.h"

#include <QFile>
#include <QFontDatabase>
#include <gtest/gtest.h>

#include <memory>
#include <string>

namespace {

using namespace velarion;

/** In the sample device; a build with another catalogue leaves it out. */
class findings : public testing::Test {
protected:
    void SetUp() override {
        if (!language().dvc_pnl_rmg_is_valid_option_language(972)) {
            GTEST_SKIP() << "no sample packs";
        }
    }
    static dvc_pnl_rmg_language_resource& language() {
        return *dvc_pnl_rmg_language_resource::dvc_pnl_rmg_get_instance();
    }
    text_origin origin_of(const char* id) const { return examiner_.texts().find(message_text(id)); }
    /** What is found about a picture drawn at its own size. */
    picture_finding picture(const char* id, const char* suffix) const {
        picture_block block;
        block.set_picture(QLatin1String(id), QLatin1String(suffix));
        panel_contents contents;
        block.describe(QRect(), contents);
        return examiner_.examine(contents).pictures.at(0);
    }

    panel_host host_;
    panel_examiner examiner_;
};

/** The pointer of the inspector above a panel, whose screens come and go. */
class inspection : public testing::Test {
protected:
    element_key key_of_title() {
        return inspection_.element_at(QPoint(px(grid::margin) + 4, px(grid::title_bar) / 2));
    }
    simulation simulation_;
    panel_view view_{simulation_.panel()}; // has it laid out
    panel_inspection inspection_{simulation_};
};

} // namespace

TEST_F(inspection, forgets_what_is_gone_and_follows_the_language) {
    ASSERT_TRUE(open_view(simulation_, QStringLiteral("home")));
    view_.picture();
    inspection_.refresh();
    inspection_.point_at(key_of_title());
    ASSERT_TRUE(inspection_.find_text(inspection_.pointed()));
    simulation_.choose_preferred_language({49, 0});
    inspection_.refresh();
    ASSERT_TRUE(inspection_.find_text(inspection_.pointed()));
    EXPECT_EQ(inspection_.find_text(inspection_.pointed())->origin.language_id, 49);
    ASSERT_TRUE(open_view(simulation_, QStringLiteral("settings")));
    view_.picture();
    inspection_.refresh();
    EXPECT_EQ(inspection_.pointed().is, element_key::NONE);
    simulation_.choose_preferred_language({0, 0});
}

TEST_F(findings, tell_the_language_that_a_text_came_from) {
    struct {
        int standard[2];
        int preferred[2];
        const char* id;
        text_source source;
        text_selection selection;
        int language_id;
        bool fell_back;
    } const rows[] = {
        {{1, 0}, {49, 0}, "1", text_source::STANDARD_LANGUAGE, text_selection::PREFERRED, 49, false},
        {{49, 0}, {1, 0}, "1", text_source::STANDARD_LANGUAGE, text_selection::PREFERRED, 1, false},
        {{7, 0}, {0, 0}, "1", text_source::STANDARD_LANGUAGE, text_selection::STANDARD, 7, false},
        {{1, 0}, {999, 972}, "1", text_source::OPTION_LANGUAGE, text_selection::PREFERRED, 972, false},
        {{49, 0}, {5, 0}, "1", text_source::STANDARD_LANGUAGE, text_selection::STANDARD_STEP, 49, false},
        {{999, 972}, {5, 0}, "1", text_source::OPTION_LANGUAGE, text_selection::STANDARD_STEP, 972, false},
        {{5, 0}, {5, 0}, "1", text_source::STANDARD_LANGUAGE, text_selection::ENGLISH_STEP, 1, true},
        {{999, 5}, {0, 0}, "1", text_source::STANDARD_LANGUAGE, text_selection::STANDARD, 1, false},
        {{1, 0}, {999, 972}, "99999999", text_source::NO_MESSAGE, text_selection::NONE, 0, false},
        {{1, 0}, {999, 972}, "no file", text_source::NO_MESSAGE, text_selection::NONE, 0, false},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(std::to_string(row.preferred[0]) + " above " + std::to_string(row.standard[0]) + ": " +
                     row.id);
        language().dvc_pnl_rmg_set_standard_language(row.standard[0], row.standard[1]);
        language().dvc_pnl_rmg_set_preferred_language(row.preferred[0], row.preferred[1]);
        const text_origin origin = origin_of(row.id);
        EXPECT_EQ(origin.source, row.source);
        EXPECT_EQ(origin.selection, row.selection);
        EXPECT_EQ(origin.language_id, row.language_id);
        EXPECT_EQ(origin.fell_back_to_english(), row.fell_back);
    }
    language().dvc_pnl_rmg_cancel_preferred_language_id();
}

/** Whether or not messages of the sample use such a row. */
TEST_F(findings, know_the_rows_that_the_build_of_a_pack_filled) {
    QFile list(QStringLiteral("/mnt/optlang/972/panel/attr/filled_rows.txt"));
    ASSERT_TRUE(list.open(QIODevice::ReadOnly));
    const int filled = list.readAll().trimmed().split('\n').last().toInt();
    EXPECT_TRUE(filled_rows().contains(972, filled, QStringLiteral("English")));
    EXPECT_FALSE(filled_rows().contains(972, 2, QStringLiteral("Copy")));
    EXPECT_FALSE(filled_rows().contains(972, filled, QStringLiteral("100 %")));
}

TEST_F(findings, tell_the_file_of_a_picture_and_whether_the_cache_had_it) {
    struct {
        const char* id;
        const char* suffix;
        picture_variant variant;
        bool is_cached;
    } const rows[] = {{"4", "", picture_variant::NORMAL, true}, // preloaded
                      {"4", "_on", picture_variant::STATE, false},
                      {"4", "_no_such", picture_variant::PLAIN_FOR_STATE, true},
                      {"99999", "", picture_variant::MISSING, false},
                      {"ext:none", "", picture_variant::MISSING, false}};
    for (const auto& row : rows) {
        SCOPED_TRACE(std::string(row.id) + row.suffix);
        picture_requests::set_counts({});
        const picture_finding found = picture(row.id, row.suffix);
        EXPECT_EQ(found.origin.variant, row.variant);
        EXPECT_EQ(found.origin.is_cached, row.is_cached);
        EXPECT_EQ(found.origin.natural_size.isEmpty(), found.is_missing());
        EXPECT_EQ(picture_requests::counts().hits, row.is_cached ? 1 : 0);
    }
}

TEST_F(findings, pictures_are_asked_for_again_only_when_they_may_be_others) {
    picture_block block("4");
    const auto requests = [&block] {
        picture_requests::set_counts({});
        block.reload();
        panel_contents contents;
        block.describe(QRect(), contents);
        return picture_requests::counts().hits + picture_requests::counts().misses;
    };
    EXPECT_EQ(requests(), 1);
    EXPECT_EQ(requests(), 0);
    host_.start_images_anew();
    EXPECT_EQ(requests(), 1);
}

TEST_F(findings, tell_texts_that_overflow_overlap_or_lack_glyphs) {
    panel_contents contents;
    const auto add = [&contents](const QString& text, const QRect& box, const QSize& needed) {
        shown_text shown;
        shown.message = message_text::literal(text);
        shown.text = text;
        shown.box = box;
        shown.needed = needed;
        shown.alignment = Qt::AlignLeft | Qt::AlignVCenter;
        contents.texts.push_back(shown);
    };
    add(QString::fromUtf8("one\ntwo\u200f"), QRect(0, 0, 200, 60), QSize(60, 40));
    add(QString::fromUtf8("\uE123 two \uE123\U0010FFFD"), QRect(50, 0, 200, 60), QSize(60, 40));
    add(QStringLiteral("beside"), QRect(110, 0, 100, 30), QSize(101, 20));
    contents.texts.back().message = message_text("99999999");
    const panel_findings found = examiner_.examine(contents);
    EXPECT_EQ(found.texts[0].missing_glyphs, QString());
    EXPECT_EQ(found.texts[1].missing_glyphs, QString::fromUtf8("\uE123\U0010FFFD"));
    EXPECT_TRUE(found.texts[0].overlaps && found.texts[1].overlaps);
    EXPECT_FALSE(found.texts[2].overlaps);
    EXPECT_EQ(found.counts.overflows, 1);
    EXPECT_EQ(found.counts.faults(), 4);
    EXPECT_EQ(found.counts.fall_backs, 1); // there is no such message
}

TEST_F(findings, the_fonts_of_the_workstation_show_nothing_on_a_panel) {
    EXPECT_EQ(missing_glyphs(QStringLiteral("bar"), font_of(text_role::BODY)), QString());
    for (const QString& family : QFontDatabase().families()) {
        const QString name = family.section(QStringLiteral(" ["), 0, 0); // of its foundry
        if (!is_panel_font(name)) {
            EXPECT_EQ(missing_glyphs(QStringLiteral("a bar"), QFont(name)), QStringLiteral("abr"));
            break;
        }
    }
}
