#include "svg_faults.h"

#include <gtest/gtest.h>

#include <algorithm>

using namespace velarion;

namespace {

const std::string SVG =
    "<svg xmlns=\"http://www.w3.org/2000/svg\" xmlns:xlink=\"http://www.w3.org/1999/xlink\" "
    "viewBox=\"0 0 48 48\">";

/** What is drawn otherwise than elsewhere was measured with the toolkit and with librsvg. */
struct svg_row {
    const char* content;
    const char* check; ///< empty for what is drawn as it is meant
    std::size_t column_behind_root = 0;
    const char* text = ""; ///< what the report holds
};

const svg_row SVG_ROWS[] = {
    {"<rect width=\"9\" height=\"50%\" fill=\"rgb(100%,0%,0%)\" stroke=\"RED\" stroke-width=\"10%\"/>", ""},
    {"<g opacity=\".5\"><path d=\"M0 0h9\" fill=\"none\" stroke=\"#fff\"/></g><g display=\"none\"/>", ""},
    {"<defs><g id=\"a\"/></defs><use xlink:href=\"#a\"/><rect style=\"fill:currentColor\"/>", ""},
    {"<metadata><x:y xmlns:x=\"urn:x\"><filter/></x:y></metadata>", ""},
    {"<defs><filter id=\"a\"><feBlend in=\"x\"/></filter></defs>", "svg-element", 6},
    {"<symbol/>", "svg-element", 0},
    {"<g><svg/></g>", "svg-element", 3},
    {"<rect clip-path=\"url(#a)\"/>", "svg-property", 6},
    {"<text x=\"1 9\" y=\"5\">ab</text>", "svg-property", 6},
    {"<ellipse rx=\"5\"/>", "svg-property", 0},
    {"<style>rect{fill:red}</style>", "svg-style", 0},
    {"<rect style=\"fill:red !important\"/>", "svg-style", 6},
    {"<defs><g id=\"a\"/></defs><use href=\"#a\"/>", "svg-href", 29},
    {"<use xlink:href=\"#a\"/><g id=\"a\"/>", "svg-href", 5},
    {"<rect fill=\"url(#a)\"/>", "svg-href", 6},
    {"<rect fill=\"#ff000080\"/>", "svg-color", 6},
    {"<rect fill=\"rgba(0,0,0,.5)\"/>", "svg-color", 6},
    {"<rect width=\"2em\"/>", "svg-unit", 6},
    {"<rect opacity=\"50%\"/>", "svg-unit", 6},
    {"<g opacity=\".5\"><rect/><rect/></g>", "svg-opacity", 3},
    {"<g>", "svg-load", 3},
    {"<metadata><filter/></metadata><x:g xmlns:x=\"urn:x\" style=\"font:a\"/>", ""},
    {"<filter xmlns=\"\"/>", "svg-element", 0},
    {"<linearGradient x1=\"9%\"/><radialGradient gradientUnits=\"userSpaceOnUse\" r=\"9\"/>", ""},
    {"<linearGradient gradientUnits=\"userSpaceOnUse\" x1=\"9%\"/>", "svg-unit", 47,
     "\"x1\": with userSpace"},
    {"<g opacity=\"0\"><rect/><rect/></g><g opacity=\"1\"><rect/><rect/></g>", ""},
    {"<g opacity=\".5\"><g><circle r=\"1\"/></g><g><circle r=\"2\"/></g></g>", "svg-opacity", 3},
    {"<rect stroke=\"#000\" opacity=\".5\"/>", "svg-opacity", 20, "the fill shows through"},
    {"<rect opacity=\".5\"/><rect stroke=\"none\" opacity=\".5\"/><g stroke=\"red\"><path opacity=\".5\" "
     "fill=\"none\"/></g>",
     ""},
    {"<g fill=\"none\"><rect fill=\"inherit\" stroke=\"#000\" opacity=\".5\"/></g>", ""},
    {"<image stroke=\"red\" opacity=\".5\"/><g id=\"a\"/><use xlink:href=\"#a\" stroke=\"red\" "
     "opacity=\".5\"/>",
     ""},
    {"<a href=\"x\"><rect filter=\"none\" mask=\"inherit\" letter-spacing=\"0\"/></a>", ""},
    {"<g mix-blend-mode=\"normal\" paint-order=\"normal\" clip=\"auto\" writing-mode=\"horizontal-tb\"/>",
     ""},
    {"<g id=\"a\"/><g xmlns:l=\"http://www.w3.org/1999/xlink\"><use l:href=\"#a\"/></g>", "svg-href", 58,
     "\"l:href\" is not read; write xlink:href"},
    {"<use xlink:href=\"b.svg#a\"/>", "svg-href", 5, "\"b.svg#a\": another file is not read"},
    {"<rect width=\"2px\" x=\"1 9\" height=\"1e-3\"/><text font-size=\"large\" dx=\"0\">a</text>", ""},
    {"<rect width=\"2mm\"/>", "svg-unit", 6, "\"mm\" counts 90 pixels an inch"},
    {"<rect width=\"wide\"/>", "svg-unit", 6, "\"wide\" is not understood; write a number"},
    {"<path stroke-dasharray=\"1px 2\"/>", "svg-unit", 6, "\"px\" is not understood here"},
    {"<text font-size=\"2em\"/>", "svg-unit", 6, "the unit \"em\""},
    {"<text dx=\"3\">a</text>", "svg-property", 6, "\"dx\": is not heeded"},
    {"<text x=\"1,9\">a</text>", "svg-property", 6, "only the first place"},
    {"<text><tspan x=\"3\">a</tspan></text>", "svg-property", 13, "no place of its own"},
    {"<path stroke-linejoin=\"arcs\"/>", "svg-property", 6, "write miter, round or bevel"},
    {"<rect style=\"fill:var(--a)\"/>", "svg-style", 6, "write the value alone"},
    {"<text style=\"font:9px a\"/>", "svg-style", 6, "write font-family, font-size"},
    {"<g style=\"transform:x\"/>", "svg-style", 3, "move it out of the style"},
    {"<path style=\"d:M0\"/>", "svg-style", 6, "move it out of the style"},
    {"<rect style=\" width : 3 \"/>", "svg-style", 6, "\"width\": counts as an attribute alone"},
    {"<rect fill=\"url('#a')\"/>", "svg-color", 6, "draws nothing"},
    {"<rect fill=\"rgb(1,2,3,4)\"/>", "svg-color", 6, "drawn black"},
    {"<rect fill=\"rgb(1 2 3 / 4)\"/>", "svg-color", 6, "drawn black"},
};

/** Whole documents, and all that is found in them. */
const struct {
    const char* document;
    const char* faults;
} SVG_DOCUMENTS[] = {
    {"<?xml version='1.0' encoding='ISO-8859-1'?><svg viewBox='0 0 9 "
     "9'><title>\xE4\xB8\xAD</title><symbol/></svg>",
     "1:85 svg-element\n"},
    {"<?xml-stylesheet href='a.css'?>\n<svg viewBox='0 0 9 9'/>", "1:1 svg-load fatal\n"},
    {"\n<html/>", "2:1 svg-load fatal\n"},
    {"<svg width='9' height='9'/>", "1:1 svg-size\n"},
    {"<svg viewBox='0,0,100 100.5' width='100' height='100'/>", ""},
    {"<svg viewBox='0 0 48 48' width='96px' height='48px'/>", "1:6 svg-size\n"},
    {"<svg viewBox='0 0 48 48' width='96'/>", ""},
    {"<svg viewBox='0 0 9 9'><symbol/>\n<g clip='a'/><symbol/></svg>",
     "1:24 svg-element (2 times)\n2:4 svg-property\n"},
};

} // namespace

TEST(pictures, what_the_toolkit_does_not_draw_is_found_where_it_stands) {
    for (const svg_row& row : SVG_ROWS) {
        SCOPED_TRACE(row.content);
        const std::string document = "<?xml version=\"1.0\"?>\n" + SVG + row.content + "</svg>";
        const std::vector<svg_fault> faults = find_svg_faults(QByteArray(document.c_str()));
        if (row.check[0] == '\0') {
            EXPECT_TRUE(faults.empty()) << faults[0].text;
            continue;
        }
        ASSERT_EQ(faults.size(), 1U);
        EXPECT_STREQ(faults[0].check, row.check);
        EXPECT_EQ(faults[0].line, 2U);
        EXPECT_NE(faults[0].text.find(row.text), std::string::npos) << faults[0].text;
        if (!faults[0].is_fatal) {
            EXPECT_EQ(faults[0].column, SVG.size() + row.column_behind_root + 1);
        }
    }
}

TEST(pictures, documents_as_a_whole) {
    for (const auto& row : SVG_DOCUMENTS) {
        std::string found;
        for (const svg_fault& fault : find_svg_faults(QByteArray(row.document))) {
            const std::size_t times = fault.text.find(" (2 times)");
            found += std::to_string(fault.line) + ':' + std::to_string(fault.column) + ' ' + fault.check +
                     (fault.is_fatal ? " fatal" : "") +
                     fault.text.substr(std::min(times, fault.text.size())) + '\n';
        }
        EXPECT_EQ(found, row.faults) << row.document;
    }
    std::string units;
    for (int i = 0; i < 250; ++i) {
        units += "<rect width=\"1" + std::string(i == 0 ? 400 : 1, 'x') + std::to_string(i) + "x\"/>";
    }
    units += "<rect width=\"1x1x\"/>";
    const std::vector<svg_fault> faults = find_svg_faults(QByteArray((SVG + units + "<g></svg>").c_str()));
    ASSERT_EQ(faults.size(), 201U) << "the first 200, and that nothing is drawn";
    EXPECT_EQ(faults[0].text.size(), 303U);
    EXPECT_NE(faults[1].text.find(" (2 times)"), std::string::npos);
    EXPECT_TRUE(faults[200].is_fatal);
}
