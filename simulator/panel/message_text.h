#ifndef MESSAGE_TEXT_H
#define MESSAGE_TEXT_H

#include <QString>
#include <QStringList>

namespace velarion {

/**
 * A text of the panel: a message with its arguments, or what a person or a machine named (a file, a number).
 * It is read when it is shown, so that it follows the language.
 */
class message_text {
public:
    message_text() = default;
    /** @param id  of a message, decimal; empty gives no text */
    // cppcheck-suppress noExplicitConstructor ; an id stands for its text wherever one is taken
    message_text(const char* id, const QStringList& arguments = {})
        : id_(QLatin1String(id))
        , arguments_(arguments) {}

    /** A text that is no message: the same in every language. */
    static message_text literal(const QString& text);

    /** The same for an address or a number, whose parts keep their order in every language. */
    static message_text ordered(const QString& text);

    /** The text in the language in force, its placeholders filled. */
    QString read() const;

    /** Has the text of every message changed when it is read, before its arguments are put in; null: as it
     * is. What is shown already changes when it is read anew. */
    static void set_disguise(QString (*disguise)(const QString& text)) { disguise_ = disguise; }

    bool is_empty() const { return id_.isEmpty() && literal_.isEmpty(); }
    bool is_message() const { return !id_.isEmpty(); }
    const QString& id() const { return id_; }
    const QStringList& arguments() const { return arguments_; }

    bool operator==(const message_text& other) const {
        return id_ == other.id_ && arguments_ == other.arguments_ && literal_ == other.literal_ &&
               is_ordered_ == other.is_ordered_;
    }

private:
    QString id_;
    QStringList arguments_;
    QString literal_;
    bool is_ordered_ = false;

    static QString (*disguise_)(const QString& text);
};

} // namespace velarion

#endif
