#include "image_device.h"

#include <QBuffer>
#include <QImage>

#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>

#include <filesystem>

namespace fs = std::filesystem;

namespace {

const long MEMORY_ALLOWANCE = 384 * 1024; // kilobytes beyond what was used before

long peak_memory() {
    rusage usage;
    getrusage(RUSAGE_SELF, &usage);
    return usage.ru_maxrss;
}

std::string repeated(const std::string& text, int count) {
    std::string result;
    for (int i = 0; i < count; ++i) {
        result += text;
    }
    return result;
}

std::string svg(const std::string& content, const std::string& view_box = "0 0 16 16") {
    return "<svg xmlns=\"http://www.w3.org/2000/svg\" xmlns:xlink=\"http://www.w3.org/1999/xlink\" "
           "viewBox=\"" +
           view_box + "\">" + content + "</svg>";
}

const char SHAPE[] = "<rect width=\"9\" height=\"9\" fill=\"red\"/>";

std::string nested_groups(int depth) {
    return svg(repeated("<g>", depth) + SHAPE + repeated("</g>", depth));
}

/** Groups of which each draws the one before it a number of times. */
std::string multiplying_groups(int groups, int times) {
    std::string content = std::string("<g id=\"g0\">") + SHAPE + "</g>";
    for (int i = 1; i <= groups; ++i) {
        content += "<g id=\"g" + std::to_string(i) + "\">" +
                   repeated("<use xlink:href=\"#g" + std::to_string(i - 1) + "\"/>", times) + "</g>";
    }
    return svg(content);
}

/** A small file that is a large picture. */
std::string dense_png(int width, int height) {
    QImage image(width, height, QImage::Format_Mono);
    image.fill(0);
    QBuffer buffer;
    buffer.open(QIODevice::WriteOnly);
    image.save(&buffer, "PNG");
    return std::string(buffer.data().constData(), static_cast<std::size_t>(buffer.data().size()));
}

std::string embedded(const std::string& type, const std::string& bytes) {
    const QByteArray text = QByteArray(bytes.data(), static_cast<int>(bytes.size())).toBase64();
    return "<image width=\"16\" height=\"16\" xlink:href=\"data:image/" + type + ";base64," +
           text.constData() + "\"/>";
}

std::string gif_of_size(const std::string& width_and_height) {
    const char palette[] = "\x80\0\0\0\0\0\xFF\xFF\xFF";
    return "GIF89a" + width_and_height + std::string(palette, 9) + std::string("\x2C\0\0\0\0", 5) +
           width_and_height + std::string("\0\x02\x02\x44\x01\0\x3B", 7);
}

class hostile_images : public image_device {
protected:
    /** Writes a picture and requests it by its name, at its natural size. */
    std::string answer_for(const std::string& name, const std::string& contents) {
        write_file(IMAGES + name, contents);
        return answer(name);
    }
};

} // namespace

TEST_F(hostile_images, are_refused_with_the_result_of_their_kind) {
    const std::string circle =
        "<g id=\"a\"><use xlink:href=\"#b\"/></g><g id=\"b\"><use xlink:href=\"#a\"/></g>";
    const std::string entities = "<!DOCTYPE svg [<!ENTITY a \"" + std::string(60, 'x') +
                                 "\"><!ENTITY b \"&#38;a;&#38;a;&#38;a;\">]>" + svg("<text>&b;</text>");
    const struct {
        const char* shows;
        const char* name;
        std::string contents;
        const char* answer;
    } rows[] = {
        {"an empty file", "a.png", "", "2  3x3"},
        {"an empty document", "a.svg", "", "4  3x3"},
        {"text", "a.gif", "GIF, it says", "2  3x3"},
        {"a picture cut in its header", "b.png", png_picture(64, 64).substr(0, 20), "2  3x3"},
        {"an animation cut in its header", "b.gif", std::string("GIF89a\x10\0\x10", 9), "2  3x3"},
        {"a document cut short", "b.svg", svg(SHAPE).substr(0, 130), "4  3x3"},
        {"a bitmap in a vector name", "c.svg", png_picture(8, 8), "4  3x3"},
        {"too many pixels in a small file", "d.png", dense_png(4097, 4097), "2  3x3"},
        {"too wide an animation", "d.gif", gif_of_size("\xFF\xFF\xFF\xFF"), "2  3x3"},
        {"too large a view box", "d.svg", svg(SHAPE, "0 0 100000 100000"), "4  3x3"},
        {"a view box beyond integers", "e.svg", svg(SHAPE, "0 0 3e9 3e9"), "4  3x3"},
        {"a negative view box", "g.svg", svg(SHAPE, "0 0 -5 -5"), "4  3x3"},
        {"groups without end", "h.svg", nested_groups(100000), "4  3x3"},
        {"groups in a bitmap name", "h.png", nested_groups(300), "2  3x3"},
        {"references in a circle", "i.svg", svg(circle), "4  3x3"},
        {"references that multiply", "j.svg", multiplying_groups(20, 10), "4  3x3"},
        {"a chain of references", "k.svg", multiplying_groups(1000, 1), "4  3x3"},
        {"entities that multiply", "l.svg", entities, "4  3x3"},
        {"a large bitmap within", "m.svg", svg(embedded("png", dense_png(5000, 5000))), "4  3x3"},
        {"many bitmaps within", "n.svg", svg(repeated(embedded("png", dense_png(3000, 3000)), 2)), "4  3x3"},
        {"a document within", "o.svg", svg(embedded("svg+xml", svg(SHAPE))), "4  3x3"},
        {"itself within", "p.svg", svg("<image xlink:href=\"" + IMAGES + "p.svg\"/>"), "4  3x3"},
    };
    const long before = peak_memory();
    for (const auto& row : rows) {
        EXPECT_EQ(answer_for(row.name, row.contents), row.answer) << row.shows;
    }
    EXPECT_LT(peak_memory() - before, MEMORY_ALLOWANCE);
}

TEST_F(hostile_images, are_not_taken_for_what_only_looks_unusual) {
    const std::string root = "<svg xmlns=\"http://www.w3.org/2000/svg\" id=\"top\" viewBox=\"0 0 16 16\">";
    const std::string gradients =
        "<linearGradient id=\"a\"><stop offset=\"0\" stop-color=\"red\"/></linearGradient>"
        "<linearGradient id=\"b\" xlink:href=\"#a\"/><rect width=\"9\" height=\"9\" fill=\"url(#b)\"/>";
    const struct {
        const char* shows;
        std::string contents;
    } rows[] = {
        {"deep groups", nested_groups(200)},
        {"references", multiplying_groups(3, 10)},
        {"gradients that build on others", svg(gradients)},
        {"a bitmap within", svg(embedded("png", png_picture(32, 32)))},
        {"a bitmap missing within", svg("<image xlink:href=\"/nowhere.png\"/>")},
        {"a prefix never declared", root + "<use xlink:href=\"#none\"/></svg>"},
        {"a link to the whole", root + "<a xlink:href=\"#top\">" + SHAPE + "</a></svg>"},
        {"an entity", "<!DOCTYPE svg [<!ENTITY red \"#ff0000\">]>" + svg("<rect fill=\"&red;\"/>")},
    };
    for (const auto& row : rows) {
        EXPECT_EQ(answer_for("a.svg", row.contents), "0 a.svg 16x16") << row.shows;
    }
    EXPECT_EQ(answer_for("whole.png", dense_png(4096, 4096)), "0 whole.png 4096x4096");
    EXPECT_EQ(answer_for("drawn.png", svg(SHAPE)), "0 drawn.png 16x16");
}

TEST_F(hostile_images, may_be_anything_but_a_file) {
    for (const char* extension : {".png", ".svg", ".gif"}) {
        SCOPED_TRACE(extension);
        const std::string path = IMAGES + "a" + extension;
        const std::string name = fs::path(path).filename().string();
        const std::string refusal = std::string(extension) == ".svg" ? "4  3x3" : "2  3x3";
        fs::create_directories(path + "/inner");
        EXPECT_EQ(answer(name), refusal);
        fs::remove_all(path);
        ASSERT_EQ(mkfifo(path.c_str(), 0600), 0);
        EXPECT_EQ(answer(name), refusal);
        fs::remove(path);
        for (const char* target : {"/dev/zero", "/nowhere", "a.png", "a.svg", "a.gif"}) {
            fs::create_symlink(target, path);
            EXPECT_EQ(answer(name), refusal) << target;
            fs::remove(path);
        }
        write_file(path, svg(SHAPE));
        fs::permissions(path, fs::perms::none);
        if (access(path.c_str(), R_OK) != 0) { // root reads everything
            EXPECT_EQ(answer(name), refusal);
        }
        fs::remove(path);
    }
}

TEST_F(hostile_images, requests_without_measure_get_no_picture) {
    write_file(IMAGES + "a.svg", svg(SHAPE));
    write_file(IMAGES + "a.png", png_picture(8, 8));
    write_file(IMAGES + "ico_globalnavi_quick.svg", svg(SHAPE));
    write_file(IMAGES + "gra_help_1_1.png", png_picture(8, 8));
    const long before = peak_memory();
    const int most = 2147483647;
    const int sizes[][2] = {{100000, 100000}, {most, most}, {most, 1}, {1, most}, {4096, 4097}};
    for (const auto& size : sizes) {
        SCOPED_TRACE(std::to_string(size[0]) + "x" + std::to_string(size[1]));
        EXPECT_EQ(answer("a.svg", "", size[0], size[1]), "4  3x3");
        EXPECT_EQ(answer("2", "", size[0], size[1]), "4  3x3");
        EXPECT_EQ(answer("a.png", "", size[0], size[1]), "2  3x3");
        EXPECT_EQ(answer("1375", "", size[0], size[1]), "2  3x3");
    }
    EXPECT_EQ(answer("a.svg", "", 100000, 16), "0 a.svg 100000x16");
    EXPECT_EQ(answer("a.png", "", 16, 100000), "0 a.png 16x100000");
    EXPECT_LT(peak_memory() - before, MEMORY_ALLOWANCE);
}

TEST_F(hostile_images, do_not_come_in_as_external_images) {
    for (const std::string& bytes :
         {dense_png(5000, 5000), nested_groups(300), gif_of_size("\xFF\xFF\xFF\xFF")}) {
        EXPECT_EQ(register_image("ext:1", bytes), 0x53023006);
    }
    EXPECT_EQ(answer("ext:1"), "5  3x3");
}
