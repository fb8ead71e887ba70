#include "headless_run.h"
#include "message_label.h"
#include "panel_frame.h"
#include "picture_view.h"
#include "simulator_options.h"

#include <QApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QImage>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QTemporaryDir>
#include <gtest/gtest.h>

#include <functional>
#include <string>

namespace velarion {
namespace {

const QRect SPOT(300, 8, 20, 30); // px: nothing else stands there in the title bar

/** Puts something above every panel that is drawn. */
class disturbance : public QObject {
public:
    disturbance(const QRect& box, std::function<QWidget*()> make)
        : box_(box)
        , make_(std::move(make)) {
        qApp->installEventFilter(this);
    }

protected:
    bool eventFilter(QObject* watched, QEvent* event) override {
        auto* panel = dynamic_cast<panel_frame*>(watched);
        if (panel && event->type() == QEvent::Resize && !panel->findChild<QWidget*>(QStringLiteral("odd"))) {
            QWidget* odd = make_();
            odd->setObjectName(QStringLiteral("odd"));
            odd->setParent(panel);
            odd->setGeometry(box_);
            odd->show();
        }
        return false;
    }

private:
    const QRect box_;
    const std::function<QWidget*()> make_;
};

QWidget* new_label(const message_text& text) {
    auto* label = new message_label;
    label->set_message(text);
    return label;
}

/** Shows a message that is not there, which a label would leave out. */
class nameless : public QWidget, public panel_element {
public:
    void describe(panel_contents& contents) const override {
        shown_text text;
        text.message = "99999999";
        text.text = QStringLiteral("a");
        text.box = rect();
        contents.texts.push_back(text);
    }
    void reload() override {}
};

/** The program with a command line, but for the start of the toolkit; "@" there is a folder that is empty. */
class headless : public testing::Test {
protected:
    int run(const QString& command_line) {
        QStringList words = command_line.split(QLatin1Char(' '), Qt::SkipEmptyParts);
        words.replaceInStrings(QStringLiteral("@"), folder_.path());
        words.prepend(QStringLiteral("panel_simulator"));
        simulator_options options;
        int code = SIMULATOR_GOOD;
        testing::internal::CaptureStderr();
        testing::internal::CaptureStdout();
        if (read_simulator_options(words, options, code)) {
            code = run_headless(options);
        }
        testing::internal::GetCapturedStdout();
        errors_ = testing::internal::GetCapturedStderr();
        return code;
    }

    QString path(const char* name) const { return folder_.filePath(QLatin1String(name)); }
    void write(const char* name, const QByteArray& bytes) const {
        QFile file(path(name));
        EXPECT_TRUE(file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size());
    }
    QByteArray read(const char* name) const {
        QFile file(path(name));
        EXPECT_TRUE(file.open(QIODevice::ReadOnly)) << name;
        return file.readAll();
    }
    QStringList files(const char* folder) const { return QDir(path(folder)).entryList(QDir::Files); }
    QJsonObject report(const char* name) const { return QJsonDocument::fromJson(read(name)).object(); }
    QJsonObject review(const char* name) const {
        QByteArray data = read(name);
        EXPECT_TRUE(data.startsWith("const REVIEW = ") && data.endsWith(";\n"));
        data.chop(2);
        return QJsonDocument::fromJson(data.mid(15)).object();
    }

    QTemporaryDir folder_;
    std::string errors_;
};

/** The one element of an id in a list of a view. */
QJsonObject element(const QJsonObject& report, const char* list, const char* id) {
    QJsonObject found;
    int count = 0;
    const QJsonArray all =
        report[QStringLiteral("screens")].toArray().at(0).toObject()[QLatin1String(list)].toArray();
    for (const QJsonValue& each : all) {
        if (each.toObject()[QStringLiteral("id")].toString() == QLatin1String(id)) {
            found = each.toObject();
            ++count;
        }
    }
    EXPECT_EQ(count, 1) << id;
    return found;
}

std::string json(const QJsonValue& value) {
    return QJsonDocument(QJsonArray{value}).toJson(QJsonDocument::Compact).toStdString();
}

TEST_F(headless, the_exit_code_and_a_line_tell_what_is_wrong_with_a_command_line) {
    write("file", "no picture");
    write("good", "view home\nexpect screen home\n");
    write("bad", "expect screen copy\n");
    struct {
        const char* command_line;
        int code;
        const char* told;
    } const rows[] = {
        {"--screen nowhere --screenshot @/a.png", 2, "no screen \"nowhere\"; see --list-screens"},
        {"--language xx --screenshot @/a.png", 2, "unknown language \"xx\""},
        {"--language en,972 --all-screens @/a", 2, "972 is neither a standard one nor in one of the slots"},
        {"--direction up --screenshot @/a.png", 2, "--direction is ltr or rtl, not \"up\""},
        {"--service maybe --script @/good", 2, "--service is auto, none or own, not \"maybe\""},
        {"--fail-on beauty --report @/a.json", 2, "unknown word \"beauty\""},
        {"--fail-on overflow --script @/good", 2, "--fail-on goes with"},
        {"--compare-with @ --report @/a.json", 2, "--compare-with goes with --review"},
        {"--watch --screenshot @/a.png", 2, "--watch needs a window"},
        {"--screenshot=", 2, "--screenshot has an empty value"},
        {"--frobnicate", 2, "frobnicate"},
        {"@/a.png", 2, "unexpected \""},
        {"--screenshot @/none/a.png", 3, "a.png cannot be written: "},
        {"--screenshot @/a.txt", 3, "\".txt\" is no kind of picture"},
        {"--report @/none/a.json --screen home --language en", 3, "a.json cannot be written: "},
        {"--all-screens @/file --screen home --language en", 3, "file cannot be made: "},
        {"--review @/file/a --screen home --language en", 3, "cannot be made: "},
        {"--review @/b --compare-with @/none", 3, "none is no folder that --review has written"},
        {"--script @/none", 3, "none cannot be read: "},
        {"--script @/bad", 1, "bad:1: screen home is open, not copy"},
        {"--script @/bad --screenshot @/c.png", 1, "bad:1: "},
        {"--script @/good --screenshot @/c.png", 0, ""},
        {"--list-screens", 0, ""},
        {"--help", 0, ""},
    };
    for (const auto& row : rows) {
        EXPECT_EQ(run(QLatin1String(row.command_line)), row.code) << row.command_line << ": " << errors_;
        EXPECT_NE(errors_.find(row.told), std::string::npos) << row.command_line << ": " << errors_;
        EXPECT_EQ(errors_.empty(), row.code == 0) << row.command_line << ": " << errors_;
    }
    EXPECT_FALSE(QFileInfo::exists(path("a.png")) || QFileInfo::exists(path("a.txt")));
    EXPECT_EQ(QImage(path("c.png")).size(), QSize(800, 480));
}

TEST_F(headless, a_report_tells_each_text_and_picture) {
    ASSERT_EQ(run(QStringLiteral("--report @/a.json --screen copy_running --language de --direction rtl")),
              0);
    const QJsonObject all = report("a.json");
    EXPECT_EQ(json(all[QStringLiteral("format")]), "[\"panel_report/1\"]");
    EXPECT_EQ(json(all[QStringLiteral("panel")]), "[{\"height\":480,\"width\":800}]");
    const QJsonObject view = all[QStringLiteral("screens")].toArray().at(0).toObject();
    const QJsonObject text = element(all, "texts", "91");
    const QJsonObject picture = element(all, "pictures", "4092");
    const struct {
        const QJsonObject& object;
        const char* member;
        const char* value;
    } rows[] = {{view, "screen", "[\"copy_running\"]"},
                {view, "language", "[49]"},
                {view, "option_language", "[0]"},
                {view, "direction", "[\"rtl\"]"},
                {text, "name", "[\"MSG_NORMAL_COPY_REDUCE_ENLARGE\"]"},
                {text, "row", "[92]"},
                {text, "language", "[49]"},
                {text, "origin", "[\"German (49), preferred\"]"},
                {text, "arguments", "[[]]"},
                {text, "missing_glyphs", "[\"\"]"},
                {picture, "missing", "[false]"}};
    for (const auto& row : rows) {
        EXPECT_EQ(json(row.object[QLatin1String(row.member)]), row.value) << row.member;
    }
}

TEST_F(headless, each_class_of_faults_ends_with_1_when_it_is_asked_for) {
    struct {
        const char* fault;
        const char* others;
        QRect box;
        std::function<QWidget*()> make;
        const char* list;
        const char* id;
        const char* told;
        const char* member;
        const char* value;
    } const rows[] = {
        {"overflow", "overlap,glyphs,pictures,fallbacks", SPOT, [] { return new_label("25"); }, "texts", "25",
         "home, 1: text 25 \"OK\" needs ", "box", "[[300,8,20,30]]"},
        {"overlap", "overflow,glyphs,pictures,fallbacks", QRect(60, 8, 120, 36),
         [] { return new_label("26"); }, "texts", "26", "text 26 \"Cancel\" lies over another text",
         "overlaps", "[true]"},
        {"glyphs", "overflow,overlap,pictures,fallbacks", QRect(300, 8, 200, 30),
         [] {
             return new_label({"89", {QString::fromUtf8("\uE123")}});
         },
         "texts", "89", "has characters that no font of the panel shows: ", "arguments", "[[\"\uE123\"]]"},
        {"pictures", "overflow,overlap,glyphs,fallbacks", SPOT,
         [] {
             return new picture_view({20, 20}, "99999");
         },
         "pictures", "99999", "home, 1: picture 99999 () is missing", "size", "[[0,0]]"},
        {"fallbacks", "overflow,overlap,glyphs,pictures", SPOT, [] { return new nameless; }, "texts",
         "99999999", "has no text in this language\n", "fallback", "[true]"},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.fault);
        const disturbance odd(row.box, row.make);
        const auto run_with = [&](const char* what, const char* faults) {
            return run(QStringLiteral("%1 --screen home --language en --fail-on %2")
                           .arg(QLatin1String(what), QLatin1String(faults)));
        };
        EXPECT_EQ(run_with("--report @/a.json", row.fault), SIMULATOR_FOUND_FAULTS);
        EXPECT_NE(errors_.find(row.told), std::string::npos) << errors_;
        EXPECT_EQ(json(element(report("a.json"), row.list, row.id)[QLatin1String(row.member)]), row.value);
        EXPECT_EQ(run_with("--screenshot @/a.png", row.others), SIMULATOR_GOOD) << errors_;
        EXPECT_EQ(run_with("--screenshot @/a.png", row.fault), SIMULATOR_FOUND_FAULTS);
        EXPECT_EQ(run_with("--all-screens @/all", row.fault), SIMULATOR_FOUND_FAULTS);
        EXPECT_EQ(run_with("--review @/review", row.fault), SIMULATOR_FOUND_FAULTS);
        EXPECT_EQ(run(QStringLiteral("--report @/a.json --screen home --language en")), SIMULATOR_GOOD);
    }
}

TEST_F(headless, a_review_is_whole_and_tells_what_changed_since_an_earlier_one) {
    ASSERT_EQ(run(QStringLiteral("--review @/one --screen copy --language en,de")), 0);
    EXPECT_EQ(files("one").join(QLatin1Char(' ')), QStringLiteral("data.js index.html review.css review.js"));
    EXPECT_EQ(files("one/screens").join(QLatin1Char(' ')), QStringLiteral("copy-1.png copy-49.png"));
    const QJsonObject first = review("one/data.js");
    EXPECT_EQ(json(first[QStringLiteral("languages")]), "[{\"1\":\"English (1)\",\"49\":\"German (49)\"}]");
    EXPECT_EQ(first[QStringLiteral("report")].toObject()[QStringLiteral("screens")].toArray().size(), 2);
    EXPECT_FALSE(first.contains(QStringLiteral("changes")));

    QImage before(path("one/screens/copy-49.png"));
    before.setPixel(799, 479, ~before.pixel(799, 479));
    before.setPixel(0, 0, ~before.pixel(0, 0));
    ASSERT_TRUE(before.save(path("one/screens/copy-49.png")));
    ASSERT_EQ(run(QStringLiteral("--review @/two --compare-with @/one --screen copy --language en,de,fr")),
              0);
    EXPECT_EQ(json(review("two/data.js")[QStringLiteral("changes")]),
              "[{\"copy-1\":{\"pixels\":0},\"copy-33\":{\"pixels\":null},\"copy-49\":{\"pixels\":2}}]");
    EXPECT_EQ(files("two/before"), QStringList{QStringLiteral("copy-49.png")});
    EXPECT_EQ(QImage(path("two/before/copy-49.png")), before);
    const QImage difference(path("two/difference/copy-49.png"));
    EXPECT_NE(difference.pixel(0, 0), difference.pixel(400, 479));
    EXPECT_EQ(difference.pixel(0, 0), difference.pixel(799, 479));

    // The same folder again: what is shown no more goes.
    ASSERT_EQ(run(QStringLiteral("--review @/two --screen copy --language en")), 0);
    EXPECT_EQ(files("two/screens"), QStringList{QStringLiteral("copy-1.png")});
    EXPECT_TRUE(files("two/before").isEmpty() && files("two/difference").isEmpty());

    // Pictures of a folder that is no review stay.
    ASSERT_TRUE(QDir().mkpath(path("own/screens")) && before.save(path("own/screens/mine.png")));
    ASSERT_EQ(run(QStringLiteral("--review @/own --screen copy --language en")), 0);
    EXPECT_EQ(files("own/screens").size(), 2);

    write("one/screens/copy-1.png", "no picture");
    EXPECT_EQ(run(QStringLiteral("--review @/three --compare-with @/one --screen copy --language en")), 3);
    EXPECT_NE(errors_.find("copy-1.png cannot be read as a picture"), std::string::npos) << errors_;
}

TEST_F(headless, all_screens_are_a_picture_each_and_a_sheet) {
    ASSERT_EQ(run(QStringLiteral("--all-screens @/a --screen home --language en,de,fr,it")), 0);
    EXPECT_EQ(files("a").join(QLatin1Char(' ')),
              QStringLiteral("home-1.png home-33.png home-39.png home-49.png sheet-home.png"));
    EXPECT_EQ(QImage(path("a/sheet-home.png")).size(), QSize(3 * 812 + 12, 2 * 516 + 12));
    ASSERT_EQ(run(QStringLiteral("--screenshot @/plain --screen home --language it")), 0);
    EXPECT_EQ(QImage(path("plain")), QImage(path("a/home-39.png")));
}

} // namespace
} // namespace velarion
