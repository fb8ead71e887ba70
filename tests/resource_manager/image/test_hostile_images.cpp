#include "image_device.h"

#include <QByteArray>

#include <sys/resource.h>
#include <sys/stat.h>

#include <algorithm>
#include <filesystem>

namespace fs = std::filesystem;

namespace {

constexpr long MEMORY_ALLOWANCE = 384L * 1024; // kilobytes beyond what was used before

long peak_memory() {
    rusage usage;
    getrusage(RUSAGE_SELF, &usage);
    return usage.ru_maxrss;
}

std::string repeated(const std::string& text, int count) {
    return QByteArray(text.c_str()).repeated(count).constData();
}

constexpr char SHAPE[] = "<rect width=\"9\" height=\"9\" fill=\"red\"/>";

/** A compressed document of one shape. */
constexpr char COMPRESSED[] =
    "\x1f\x8b\x08\x00\x00\x00\x00\x00\x02\x03\x15\xca\x41\x0a\x80 \x10\x00\xc0\xaf,\xfb\x00w\xa9"
    "\x93\xa1\x1e\xba\xf7\x88\xa0\xd0\xa0RR\x5c\xe9\xf5\xd9u\x18\x93\xab\x87v\x9dw\xb6\x18JI\x13"
    "\x91\x88(\x19U|<\x0d\xccL} \xd4\x63\x97\x39\x36\x8b\x0c\x0c\x1a\x34:\x93\xd6\x12`\xb3\xb8t"
    "\x0a\xba\xea\x17\xc9\x99\x7f\xbb\x0f\x90\x17\xc1\xceU\x00\x00\x00";

std::string nested_groups(int depth) {
    return svg_document(repeated("<g>", depth) + SHAPE + repeated("</g>", depth));
}

/** Groups of which each draws the one before it a number of times. */
std::string multiplying_groups(int groups, int times) {
    std::string content = std::string("<g id=\"g0\">") + SHAPE + "</g>";
    for (int i = 1; i <= groups; ++i) {
        content += "<g id=\"g" + std::to_string(i) + "\">" +
                   repeated("<use xlink:href=\"#g" + std::to_string(i - 1) + "\"/>", times) + "</g>";
    }
    return svg_document(content);
}

/** Groups of which each names the one before it in an entity. */
std::string multiplying_entities(int groups, int times) {
    std::string content = "<!DOCTYPE svg [<!ENTITY e0 \"xxxxxxxxxx\">";
    for (int i = 1; i <= groups; ++i) {
        content += "<!ENTITY e" + std::to_string(i) + " \"" +
                   repeated("&e" + std::to_string(i - 1) + ';', times) + "\">";
    }
    return content + "]>" + svg_document("<text>&e" + std::to_string(groups) + ";</text>");
}

/** A document compressed into stored blocks, as gzip does with what it cannot make smaller. */
std::string compressed(const std::string& bytes) {
    std::string result("\x1f\x8b\x08\0\0\0\0\0\0\xff", 10);
    for (std::size_t at = 0; at < bytes.size(); at += 65535) {
        const std::size_t size = std::min<std::size_t>(65535, bytes.size() - at);
        const std::size_t check = size ^ 0xFFFFU;
        for (const std::size_t part :
             {std::size_t{at + size == bytes.size()}, size & 0xFFU, size >> 8U, check & 0xFFU, check >> 8U}) {
            result += static_cast<char>(part);
        }
        result += bytes.substr(at, size);
    }
    return result; // the toolkit does not miss the check sum
}

std::string dashed(const std::string& shape, const std::string& dashes = "3 1.5",
                   const std::string& end = "/>") {
    return svg_document('<' + shape + " stroke=\"#000\" stroke-dasharray=\"" + dashes + '"' + end);
}

std::string embedded(const std::string& type, const std::string& bytes) {
    const QByteArray text = QByteArray(bytes.data(), static_cast<int>(bytes.size())).toBase64();
    return "<image width=\"16\" height=\"16\" xlink:href=\"data:image/" + type + ";base64," +
           text.constData() + "\"/>";
}

std::string replaced(std::string text, const std::string& part, const std::string& by) {
    for (std::size_t at = text.find(part); at != std::string::npos; at = text.find(part, at + by.size())) {
        text.replace(at, part.size(), by);
    }
    return text;
}

std::string gif_of_size(const std::string& width_and_height, const std::string& of_frame = "") {
    const char palette[] = "\x80\0\0\0\0\0\xFF\xFF\xFF";
    return "GIF89a" + width_and_height + std::string(palette, 9) + std::string("\x2C\0\0\0\0", 5) +
           (of_frame.empty() ? width_and_height : of_frame) + std::string("\0\x02\x02\x44\x01\0\x3B", 7);
}

/** An icon that calls a PNG file a picture of 16 by 16. */
std::string icon_of(const std::string& png, char highest_of_count = 0) {
    return std::string("\0\0\1\0\1\0\x10\x10\0\0\1\0\x20\0\xFF\xFF\xFF", 17) + highest_of_count +
           std::string("\x16\0\0\0", 4) + png;
}

/** A bitmap of black and white that begins with its top row. */
std::string bitmap_of_size(const std::string& width, const std::string& negative_height) {
    return std::string("BM\0\0\0\0\0\0\0\0\x3E\0\0\0\x28\0\0\0", 18) + width + negative_height +
           std::string("\1\0\1\0", 4) + std::string(64, '\0');
}

using hostile_images = image_device;

} // namespace

TEST_F(hostile_images, are_refused_with_the_result_of_their_kind_and_others_are_not) {
    const std::string circle =
        "<g id=\"a\"><use xlink:href=\"#b\"/></g><g id=\"b\"><use xlink:href=\"#a\"/></g>";
    const std::string large = svg_document(embedded("png", png_picture(8192, 8192)));
    const std::string root = "<svg xmlns=\"http://www.w3.org/2000/svg\" id=\"top\" viewBox=\"0 0 16 16\">";
    const std::string gradients =
        "<linearGradient id=\"a\"><stop offset=\"0\" stop-color=\"red\"/></linearGradient>"
        "<linearGradient id=\"b\" xlink:href=\"#a\"/><rect width=\"9\" height=\"9\" fill=\"url(#b)\"/>";
    const std::string own_gradient = replaced(gradients, "id=\"a\"", "id=\"a\" xlink:href=\"#b\"");
    const std::string entity = "<!DOCTYPE svg [<!ENTITY red \"#ff0000\">]>";
    const std::string cut = png_picture(64, 64).substr(0, 20);
    const std::string arc = "path d=\"M16 24 A 3 1e20 5 0 1 9 9\"";
    const std::string drawing = svg_document(SHAPE);
    const std::string file = "<image width=\"9\" height=\"9\" xlink:href=\"";
    const std::string drawn_by_content = qVersion()[0] == '4' ? "2  3x3" : "0 r.png 16x16";
    write_file(IMAGES + "inner.svg", drawing);
    std::string many_attributes;
    for (int i = 0; i < 5000; ++i) {
        many_attributes += " a" + std::to_string(i) + "=\"\"";
    }
    ASSERT_EQ(mkfifo((IMAGES + "pipe.png").c_str(), 0600), 0);
    const struct {
        const char* shows;
        const char* name;
        std::string contents;
        std::string answer;
    } rows[] = {
        {"an empty file", "a.png", "", "2  3x3"},
        {"an empty document", "a.svg", "", "4  3x3"},
        {"text", "a.gif", "GIF, it says", "2  3x3"},
        {"a picture cut in its header", "b.png", png_picture(64, 64).substr(0, 20), "2  3x3"},
        {"an animation cut in its header", "b.gif", std::string("GIF89a\x10\0\x10", 9), "2  3x3"},
        {"a document cut short", "b.svg", svg_document(SHAPE).substr(0, 130), "4  3x3"},
        {"a bitmap in a vector name", "c.svg", png_picture(8, 8), "4  3x3"},
        {"too many pixels in a small file", "d.png", png_picture(8192, 8192), "2  3x3"},
        {"too wide an animation", "d.gif", gif_of_size("\xFF\xFF\xFF\xFF"), "2  3x3"},
        {"a frame on a large screen", "d.gif", gif_of_size("\x01\x20\x01\x20", "\x10\x01\x10\x01"), "2  3x3"},
        {"a large picture in an icon", "d.ico", icon_of(png_picture(8192, 8192)), "2  3x3"},
        {"an icon of 2 GiB, it says", "d.ico", icon_of(png_picture(8, 8), '\x7F'), "2  3x3"},
        {"too large a view box", "d.svg", svg_document(SHAPE, "0 0 100000 100000"), "4  3x3"},
        {"a view box beyond integers", "e.svg", svg_document(SHAPE, "0 0 3e9 3e9"), "4  3x3"},
        {"a negative view box", "g.svg", svg_document(SHAPE, "0 0 -5 -5"), "4  3x3"},
        {"groups without end", "h.svg", nested_groups(100000), "4  3x3"},
        {"groups in a bitmap name", "h.png", nested_groups(2010), "2  3x3"},
        {"references in a circle", "i.svg", svg_document(circle), "4  3x3"},
        {"references that multiply", "j.svg", multiplying_groups(20, 10), "4  3x3"},
        {"a chain of references", "k.svg", multiplying_groups(1100, 1), "4  3x3"},
        {"entities that multiply", "l.svg", multiplying_entities(8, 10), "4  3x3"},
        {"references without a mark", "i.svg", svg_document(replaced(circle, "#", "X")), "4  3x3"},
        {"the other kind of id", "i.svg", svg_document(replaced(circle, " id=", " xml:id=")), "4  3x3"},
        {"a large bitmap within", "m.svg", large, "4  3x3"},
        {"behind a blank", "m.svg", replaced(large, "\"data:", "\" data:"), "4  3x3"},
        {"behind another reference", "m.svg", replaced(large, " xlink:href", " href=\"x\" xlink:href"),
         "4  3x3"},
        {"a large bitmap beside it", "m.svg", svg_document("<image xlink:href=\"d.png\"/>"), "4  3x3"},
        {"from its top down", "m.svg",
         svg_document(embedded("bmp", bitmap_of_size(std::string("\0\x30\0\0", 4), "\1\xE0\xFF\xFF"))),
         "4  3x3"},
        {"many bitmaps within", "n.svg", svg_document(repeated(embedded("png", png_picture(6000, 6000)), 2)),
         "4  3x3"},
        {"itself within", "p.svg", svg_document("<image xlink:href=\"" + IMAGES + "p.svg\"/>"), "4  3x3"},
        {"a gradient that builds on itself", "i.svg", svg_document(own_gradient), "4  3x3"},
        {"a style sheet", "i.svg", "<?xml-stylesheet type=\"text/css\" href=\"/dev/zero\"?>" + drawing,
         "4  3x3"},
        {"an entity of a file", "i.svg", "<!DOCTYPE svg [<!ENTITY a SYSTEM \"a\">]>" + drawing, "4  3x3"},
        {"a device within", "i.svg", svg_document(file + "/dev/zero\"/>"), "4  3x3"},
        {"a pipe by a name to complete", "i.svg", svg_document(file + "pipe\"/>"), "4  3x3"},
        {"too many attributes", "i.svg", replaced(drawing, "<rect", "<rect" + many_attributes), "4  3x3"},
        {"compressed without end", "a.svgz", compressed(drawing + std::string(17 << 20, ' ')), "2  3x3"},
        {"an arc without end", "e.svg", dashed(arc), "4  3x3"},
        {"in a style", "e.svg",
         svg_document('<' + arc + " stroke=\"red\" style=\"stroke-\\64 asharray:3 1.5\"/>"), "4  3x3"},
        {"in a reference", "e.svg",
         svg_document('<' + arc + " style=\"stroke:red;stroke-&#100;asharray:3\"/>"), "4  3x3"},
        {"in a style sheet", "e.svg",
         svg_document("<style>path.a{stroke:red;stroke-dasharray:3 1}</style><" + arc + " class=\"a\"/>"),
         "4  3x3"},
        {"inherited through a use", "e.svg",
         svg_document(
             "<defs><" + arc +
             " id=\"a\"/></defs><g stroke=\"red\" stroke-dasharray=\"3\"><use xlink:href=\"#a\"/></g>"),
         "4  3x3"},
        {"a shape with tiny dashes", "e.svg", dashed("circle r=\"8\"", "1e-4"), "4  3x3"},
        {"inherited where a style has errors", "e.svg",
         svg_document("<g stroke=\"red\" stroke-dasharray=\"3\"><" + arc + " style=\"x;stroke:none\"/></g>"),
         "4  3x3"},
        {"around a letter", "e.svg", dashed("text", "1e-4", ">o</text>"), "4  3x3"},
        {"a circle behind a part of a text", "i.svg",
         svg_document("<g id=\"a\"><text><tspan id=\"a\">o</tspan></text><use xlink:href=\"#a\"/></g>"),
         "4  3x3"},
        {"a circle in a style with an error", "i.svg",
         svg_document(replaced(circle, "<g", "<g style=\"x;display:none\"")), "4  3x3"},
        {"references that multiply where all is measured", "i.svg",
         replaced(replaced(multiplying_groups(20, 10), "viewBox=\"0 0 16 16\">", "><defs>"), "</svg>",
                  "</defs></svg>"),
         "4  3x3"},
        {"the other gradient of an id", "i.svg",
         svg_document(replaced(own_gradient, "<linearGradient id=\"b\"",
                               "<linearGradient id=\"b\"/><linearGradient id=\"b\"")),
         "4  3x3"},
        {"dashes enough", "q.svg", dashed("path d=\"M0 0H99999Q9 9 9 0A5 5 0 0 1 9 9Z\""), "0 q.svg 16x16"},
        {"an arc that nothing draws", "q.svg",
         svg_document("<defs><" + arc + " stroke=\"red\" stroke-dasharray=\"3\"/></defs>"), "0 q.svg 16x16"},
        {"a circle that nothing draws", "q.svg", svg_document("<defs>" + circle + own_gradient + "</defs>"),
         "0 q.svg 16x16"},
        {"a circle that is invisible", "q.svg", svg_document("<g visibility=\"hidden\">" + circle + "</g>"),
         "0 q.svg 16x16"},
        {"a circle in a shape", "q.svg", svg_document("<path>" + circle + "</path>"), "0 q.svg 16x16"},
        {"a circle that a switch passes over", "q.svg",
         svg_document("<switch>" + std::string(SHAPE) + circle + "</switch>"), "0 q.svg 16x16"},
        {"a use of the whole", "q.svg", root + "<use xlink:href=\"#top\"/></svg>", "0 q.svg 16x16"},
        {"a use of a later shape of its id", "q.svg",
         svg_document("<use id=\"a\" xlink:href=\"#a\"/><path id=\"a\"/>"), "0 q.svg 16x16"},
        {"long dashes without paint", "q.svg", replaced(dashed(arc), "#000", "url(#none)"), "0 q.svg 16x16"},
        {"deep groups", "q.svg", nested_groups(2000), "0 q.svg 16x16"},
        {"a document within", "q.svg", svg_document(embedded("svg+xml", drawing) + file + "inner.svg\"/>"),
         "0 q.svg 16x16"},
        {"bitmaps cut or nameless", "q.svg",
         svg_document(embedded("png", cut) + "<image/>" + file + "\"/><image href=\"x\"/>" + SHAPE),
         "0 q.svg 16x16"},
        {"a compressed document", "q.svgz", std::string(COMPRESSED, sizeof COMPRESSED - 1), "0 q.svgz 9x9"},
        {"in a vector name", "q.svg", std::string(COMPRESSED, sizeof COMPRESSED - 1), "0 q.svg 9x9"},
        {"a large drawing", "q.svg", svg_document(SHAPE, "0 0 5000 5000"), "0 q.svg 5000x5000"},
        {"references", "q.svg", multiplying_groups(3, 10), "0 q.svg 16x16"},
        {"gradients that build on others", "q.svg", svg_document(gradients), "0 q.svg 16x16"},
        {"a bitmap within", "q.svg", svg_document(embedded("png", png_picture(32, 32))), "0 q.svg 16x16"},
        {"a bitmap missing within", "q.svg", svg_document("<image xlink:href=\"/nowhere.png\"/>"),
         "0 q.svg 16x16"},
        {"a prefix never declared", "q.svg", root + "<use xlink:href=\"#none\"/></svg>", "0 q.svg 16x16"},
        {"a link to the whole", "q.svg", root + "<a xlink:href=\"#top\">" + SHAPE + "</a></svg>",
         "0 q.svg 16x16"},
        {"an entity", "q.svg", entity + svg_document("<rect fill=\"&red;\"/>"), "0 q.svg 16x16"},
        {"a bitmap from its top down", "q.bmp",
         bitmap_of_size(std::string("\x08\0\0\0", 4), "\xF8\xFF\xFF\xFF"), "0 q.bmp 8x8"},
        {"a photograph", "q.png", png_picture(6000, 4000), "0 q.png 6000x4000"},
        {"a drawing in a bitmap name", "r.png", drawing, drawn_by_content},
    };
    const long before = peak_memory();
    for (const auto& row : rows) {
        write_file(IMAGES + row.name, row.contents);
        EXPECT_EQ(answer(row.name), row.answer) << row.shows;
    }
    EXPECT_LT(peak_memory() - before, MEMORY_ALLOWANCE);
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
    }
}

TEST_F(hostile_images, requests_without_measure_draw_and_scale_nothing) {
    write_file(IMAGES + "a.svg", svg_document(SHAPE));
    write_file(IMAGES + "a.png", png_picture(8, 8));
    const int most = 2147483647;
    const int sizes[][2] = {{100000, 100000}, {most, most}, {most, 1}, {1, most}, {8192, 8192}};
    for (const auto& size : sizes) {
        SCOPED_TRACE(std::to_string(size[0]) + "x" + std::to_string(size[1]));
        EXPECT_EQ(answer("a.svg", "", size[0], size[1]), "4  3x3");
        EXPECT_EQ(answer("a.png", "", size[0], size[1]), "0 a.png 8x8");
    }
    EXPECT_EQ(answer("a.svg", "", 100000, 16), "0 a.svg 100000x16");
    EXPECT_EQ(answer("a.png", "", 16, 100000), "0 a.png 16x100000");
}

TEST_F(hostile_images, do_not_come_in_as_external_images) {
    for (const std::string& bytes :
         {png_picture(8192, 8192), nested_groups(2010), gif_of_size("\xFF\xFF\xFF\xFF")}) {
        EXPECT_EQ(register_image("ext:1", bytes), 0x53023006);
    }
    EXPECT_EQ(answer("ext:1"), "5  3x3");
    EXPECT_EQ(register_image("ext:1", std::string(COMPRESSED, sizeof COMPRESSED - 1)), 0);
}
