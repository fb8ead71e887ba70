#include "text_search.h"

#include <algorithm>

namespace velarion {

QString comparable_text(const QString& text, bool ignores_accents) {
    const QString folded =
        text.normalized(ignores_accents ? QString::NormalizationForm_KD : QString::NormalizationForm_KC)
            .toCaseFolded();
    QString result;
    result.reserve(folded.size());
    std::copy_if(folded.begin(), folded.end(), std::back_inserter(result), [ignores_accents](QChar c) {
        const bool is_accent = c.category() == QChar::Mark_NonSpacing;
        return c.category() != QChar::Other_Format && !(is_accent && ignores_accents);
    });
    return result.simplified();
}

text_search text_search::of_words(const QString& words, bool ignores_accents) {
    text_search search;
    search.ignores_accents_ = ignores_accents;
    search.words_ = comparable_text(words, ignores_accents).split(QLatin1Char(' '), Qt::SkipEmptyParts);
    return search;
}

text_search text_search::of_expression(const QString& pattern) {
    text_search search;
    search.is_expression_ = true;
    search.expression_ = QRegularExpression(pattern, QRegularExpression::CaseInsensitiveOption |
                                                         QRegularExpression::UseUnicodePropertiesOption |
                                                         QRegularExpression::MultilineOption);
    return search;
}

QString text_search::fault() const {
    return is_expression_ && !expression_.isValid() ? QStringLiteral("%1 at character %2")
                                                          .arg(expression_.errorString())
                                                          .arg(expression_.patternErrorOffset() + 1)
                                                    : QString();
}

bool text_search::is_in(const QString& text) const {
    return is_in_any({text});
}

bool text_search::is_in_any(const QStringList& texts) const {
    if (is_expression_) {
        return expression_.isValid() && std::any_of(texts.begin(), texts.end(), [this](const QString& text) {
                   return expression_.match(text).hasMatch();
               });
    }
    QStringList comparables;
    for (const QString& text : texts) {
        comparables.append(comparable_text(text, ignores_accents_));
    }
    return std::all_of(words_.begin(), words_.end(), [&comparables](const QString& word) {
        return std::any_of(comparables.begin(), comparables.end(),
                           [&word](const QString& text) { return text.contains(word); });
    });
}

} // namespace velarion
