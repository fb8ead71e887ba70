#ifndef PANEL_LANGUAGES_H
#define PANEL_LANGUAGES_H

#include <vector>

namespace velarion {

/** A language selection of the library: (language id, option language id). */
struct language_choice {
    int language_id;
    int option_language_id;

    bool operator==(const language_choice& other) const {
        return language_id == other.language_id && option_language_id == other.option_language_id;
    }
};

/** The languages of the panel, as screens offer them. A choice shows at once. */
class panel_languages {
public:
    virtual ~panel_languages() = default;

    /** Every language that the panel can show: the standard ones, then those of the slots. */
    virtual std::vector<language_choice> languages() const = 0;
    /** The machine's own language. */
    virtual language_choice standard_language() const = 0;
    /** What a user of the panel chose above it; 0, 0: nothing. */
    virtual language_choice preferred_language() const = 0;

    virtual void choose_standard_language(const language_choice& choice) = 0;
    /** @param choice  0, 0 ends it */
    virtual void choose_preferred_language(const language_choice& choice) = 0;
};

} // namespace velarion

#endif
