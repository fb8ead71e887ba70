#include "stroke_font.h"

#include <algorithm>
#include <map>
#include <sstream>

namespace velarion {

namespace {

constexpr double CELL_WIDTH = 4;
constexpr double CELL_HEIGHT = 6;
constexpr double ADVANCE = 6;

/** Polylines on a cell of 4 by 6: two digits a point, a blank before each further line. */
const std::map<char, const char*> LETTERS = {
    {'A', "062046 1434"},
    {'B', "0006 003041423303 3344453606"},
    {'C', "4130100105163645"},
    {'D', "00204244260600"},
    {'E', "40000646 0333"},
    {'F', "400006 0333"},
    {'G', "41301001051636454323"},
    {'H', "0006 4046 0343"},
    {'I', "1030 2026 1636"},
    {'J', "4045361605"},
    {'K', "0006 400346"},
    {'L', "000646"},
    {'M', "0600234046"},
    {'N', "06004640"},
    {'O', "103041453616050110"},
    {'P', "06003041423303"},
    {'Q', "103041453616050110 2446"},
    {'R', "06003041423303 2346"},
    {'S', "413010010213334445361605"},
    {'T', "0040 2026"},
    {'U', "000516364540"},
    {'V', "002640"},
    {'W', "0016233640"},
    {'X', "0046 4006"},
    {'Y', "002340 2326"},
    {'Z', "00400646"},
    {'0', "103041453616050110"},
    {'1', "112026 1636"},
    {'2', "01103041420646"},
    {'3', "0110304142334445361605 1333"},
    {'4', "300444 3036"},
    {'5', "400002324345361605"},
    {'6', "413010010516364544331304"},
    {'7', "004016"},
    {'8', "103041423313020110 133344453616050413"},
    {'9', "423313020110304145361605"},
    {'-', "1333"},
    {'+', "2125 0343"},
    {'#', "1016 3036 0242 0444"},
    {'%', "4006 0110 3645"},
    {':', "2122 2526"},
    {'.', "2526"},
    {'@', "3212143432354541301001051636"},
};

} // namespace

double stroke_text_width(const std::string& text, double height) {
    const double cells = static_cast<double>(text.size()) * ADVANCE - (ADVANCE - CELL_WIDTH);
    return std::max(0.0, cells) * height / CELL_HEIGHT;
}

std::string stroke_text(const std::string& text, double center_x, double center_y, double height) {
    const double unit = height / CELL_HEIGHT;
    double left = center_x - stroke_text_width(text, height) / 2;
    std::ostringstream path;
    for (const char letter : text) {
        const auto lines = LETTERS.find(letter);
        bool starts_a_line = true;
        for (const char* point = lines == LETTERS.end() ? "" : lines->second; *point != '\0'; ++point) {
            if (*point == ' ') {
                starts_a_line = true;
                continue;
            }
            path << (starts_a_line ? 'M' : 'L') << left + (point[0] - '0') * unit << ' '
                 << center_y - height / 2 + (point[1] - '0') * unit;
            starts_a_line = false;
            ++point;
        }
        left += ADVANCE * unit;
    }
    return path.str();
}

} // namespace velarion
