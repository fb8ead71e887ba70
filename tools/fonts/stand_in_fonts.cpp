#include "stand_in_fonts.h"

#include <QFont>

#include <algorithm>
#include <iterator>

namespace velarion {

namespace {

struct stand_in_font {
    const char* family;
    const char* stand_in;
};

constexpr stand_in_font STAND_INS[] = {{"Univers OTS", "Liberation Sans"},
                                       {"HeiseiKakuGothW5_JIS0213C", "VL PGothic"}};

} // namespace

void use_stand_in_fonts() {
    for (const stand_in_font& font : STAND_INS) {
        QFont::insertSubstitution(QLatin1String(font.family), QLatin1String(font.stand_in));
    }
}

bool is_stand_in_font(const QString& family) {
    return std::any_of(std::begin(STAND_INS), std::end(STAND_INS), [&family](const stand_in_font& font) {
        return family.compare(QLatin1String(font.stand_in), Qt::CaseInsensitive) == 0;
    });
}

} // namespace velarion
