#ifndef TEXT_SEARCH_H
#define TEXT_SEARCH_H

#include <QRegularExpression>
#include <QString>
#include <QStringList>

namespace velarion {

/** Text in the form in which search compares it: no letter case, blanks and line breaks as one blank, no
 * characters that only format. */
QString comparable_text(const QString& text, bool ignores_accents = false);

/**
 * What is searched for: words that must all occur, in any order and anywhere, or a regular expression. Letter
 * case does not count in any script, and composed characters are like decomposed ones.
 */
class text_search {
public:
    /** @param words            separated by white space; none match everything
     *  @param ignores_accents  "eleve" finds "élevé", also where a mark makes another letter ("し", "じ") */
    static text_search of_words(const QString& words, bool ignores_accents);
    /** A fault of the pattern is told by fault(); nothing matches then. */
    static text_search of_expression(const QString& pattern);

    /** What is wrong with the regular expression; empty when nothing is. */
    QString fault() const;

    /** Whether all words, or the expression, occur in a text. */
    bool is_in(const QString& text) const;

    /** Whether each word occurs in one of the texts, or the expression in one of them. */
    bool is_in_any(const QStringList& texts) const;

private:
    QStringList words_;
    bool ignores_accents_ = false;
    bool is_expression_ = false;
    QRegularExpression expression_;
};

} // namespace velarion

#endif
