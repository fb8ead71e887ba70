#ifndef CHECKS_H
#define CHECKS_H

#include <string>

namespace velarion {

/** What can be found in a catalogue; the name stands behind each report, in "[...]". */
struct catalogue_check {
    const char* name;
    const char* summary;
};

// Faults: what the build cannot take.
inline constexpr char CHECK_FILE[] = "file";
inline constexpr char CHECK_ENCODING[] = "encoding";
inline constexpr char CHECK_TABLE[] = "table";
inline constexpr char CHECK_ESCAPE[] = "escape";
inline constexpr char CHECK_NUMBER[] = "number";
inline constexpr char CHECK_ID[] = "id";
inline constexpr char CHECK_NAME[] = "name";
inline constexpr char CHECK_ROW[] = "row";
inline constexpr char CHECK_PICTURE[] = "picture";
inline constexpr char CHECK_PACK[] = "pack";
inline constexpr char CHECK_KEYBOARD[] = "keyboard";
inline constexpr char CHECK_FIGURES[] = "figures";
inline constexpr char CHECK_EXCHANGE[] = "exchange";
inline constexpr char CHECK_CONFLICT[] = "conflict";

// What can be left out, or made an error.
inline constexpr char CHECK_PLACEHOLDERS[] = "placeholders";
inline constexpr char CHECK_FONTS[] = "fonts";
inline constexpr char CHECK_EXTENSIONS[] = "extensions";
inline constexpr char CHECK_STANDARD[] = "standard";

/** The checks that -W takes, in the order in which they are told; ends with a null name. */
extern const catalogue_check SELECTABLE_CHECKS[];

bool is_selectable_check(const std::string& name);

/** The names of SELECTABLE_CHECKS, for people: "a, b, c". */
std::string selectable_check_names();

} // namespace velarion

#endif
