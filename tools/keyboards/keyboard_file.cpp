#include "keyboard_file.h"

#include <QFile>
#include <QFileInfo>
#include <QSet>

namespace velarion {

namespace {

constexpr qint64 LARGEST_FILE = 1048576; // bytes
constexpr double WIDEST_KEY = 20;
constexpr char COMPOSITION[] = "composition";
constexpr char ALL_LANGUAGES[] = "*";
constexpr const char* FUNCTIONS[] = {"backspace", "enter", "left", "next", "right", "space"};

/** The lines of a file, without comments and empty ones, and the place of the current one. */
class line_reader {
public:
    line_reader(const QString& path, QString& fault)
        : path_(path)
        , fault_(fault) {}

    bool open() {
        const QFileInfo place(path_);
        QFile file(path_);
        if (place.exists() && !place.isFile()) {
            fault_ = QStringLiteral("%1: is no regular file; replace it by one").arg(path_);
            return false;
        }
        if (!file.open(QIODevice::ReadOnly)) {
            fault_ = QStringLiteral("%1: cannot be read").arg(path_);
            return false;
        }
        const QByteArray bytes = file.read(LARGEST_FILE + 1);
        const QString text = QString::fromUtf8(bytes);
        if (bytes.size() > LARGEST_FILE || text.contains(QChar::ReplacementCharacter)) {
            fault_ = QStringLiteral("%1: is larger than 1 MiB or no UTF-8").arg(path_);
            return false;
        }
        lines_ = text.split(QLatin1Char('\n'));
        return true;
    }

    /** @return whether there is another line; @p line receives it without blanks around it */
    bool next(QString& line) {
        while (number_ < lines_.size()) {
            line = lines_.at(number_++).trimmed();
            if (!line.isEmpty() && !line.startsWith(QLatin1Char('#'))) {
                return true;
            }
        }
        return false;
    }

    bool fail(const QString& reason) {
        fault_ = QStringLiteral("%1:%2: %3").arg(path_).arg(number_).arg(reason);
        return false;
    }

private:
    QString path_;
    QString& fault_;
    QStringList lines_;
    int number_ = 0;
};

bool read_section(const QString& line, QString& section) {
    const bool is_section = line.size() > 2 && line.startsWith(QLatin1Char('[')) &&
                            line.endsWith(QLatin1Char(']')) && !line.contains(QLatin1Char(' '));
    if (is_section) {
        section = line.mid(1, line.size() - 2);
    }
    return is_section;
}

bool read_property(const QString& line, QString& name, QString& value) {
    const QString separator = QStringLiteral(" = ");
    const int position = line.indexOf(separator);
    name = line.left(position);
    value = line.mid(position + separator.size()).trimmed();
    return position > 0 && !value.isEmpty();
}

bool read_function(const QString& word, keyboard_key& key) {
    const QStringList parts = word.mid(1, word.size() - 2).split(QLatin1Char('*'));
    bool is_width = true;
    key.function = parts.at(0);
    key.width = parts.size() > 1 ? parts.at(1).toDouble(&is_width) : 1;
    return !key.function.isEmpty() && parts.size() <= 2 && is_width && key.width > 0 &&
           key.width <= WIDEST_KEY;
}

bool read_key(const QString& word, keyboard_key& key) {
    if (word.size() > 2 && word.startsWith(QLatin1Char('{')) && word.endsWith(QLatin1Char('}'))) {
        return read_function(word, key);
    }
    const int colon = word.indexOf(QLatin1Char(':'), 1);
    key.text = colon > 0 ? word.left(colon) : word;
    key.held = colon > 0 ? word.mid(colon + 1) : QString();
    return colon < 0 || !key.held.isEmpty();
}

bool read_board_property(const QString& line, keyboard& board) {
    QString name;
    QString value;
    if (!read_property(line, name, value)) {
        return false;
    }
    if (name == QLatin1String("name")) {
        board.name = value;
        return true;
    }
    board.is_right_to_left = value == QLatin1String("rtl");
    return name == QLatin1String("direction") && (board.is_right_to_left || value == QLatin1String("ltr"));
}

bool read_row(const QString& line, keyboard_layer& layer, QString& bad_word) {
    layer.rows.emplace_back();
    for (const QString& word : line.split(QLatin1Char(' '), Qt::SkipEmptyParts)) {
        keyboard_key key;
        if (!read_key(word, key)) {
            bad_word = word;
            return false;
        }
        layer.rows.back().push_back(key);
    }
    return true;
}

bool read_board_line(line_reader& lines, const QString& section, const QString& line, keyboard& board) {
    if (section.isEmpty()) {
        return read_board_property(line, board) ||
               lines.fail(QStringLiteral("is neither \"name = TEXT\" nor \"direction = ltr\" or \"rtl\""));
    }
    if (section == QLatin1String(COMPOSITION)) {
        board.compositions.emplace_back();
        auto& composition = board.compositions.back();
        return read_property(line, composition.first, composition.second) ||
               lines.fail(QStringLiteral("is no \"KEYS = TEXT\""));
    }
    QString bad_word;
    return read_row(line, board.layers.back(), bad_word) ||
           lines.fail(QStringLiteral("\"%1\" is no key").arg(bad_word));
}

/** Every function must be a known one or a layer. */
bool check_functions(const QString& path, const keyboard& board, QString& fault) {
    QSet<QString> known;
    for (const char* function : FUNCTIONS) {
        known.insert(QLatin1String(function));
    }
    for (const keyboard_layer& layer : board.layers) {
        known.insert(layer.name);
    }
    for (const keyboard_layer& layer : board.layers) {
        for (const auto& row : layer.rows) {
            for (const keyboard_key& key : row) {
                if (!key.function.isEmpty() && !known.contains(key.function)) {
                    fault = QStringLiteral("%1: layer \"%2\": {%3} is neither a function nor a layer")
                                .arg(path, layer.name, key.function);
                    return false;
                }
            }
        }
    }
    return true;
}

/** Calls @p take with section, name and value of every property, as long as it returns true. */
template <typename TAKE> bool read_sections(line_reader& lines, TAKE take) {
    QString section;
    QString line;
    while (lines.next(line)) {
        QString name;
        QString value;
        if (read_section(line, section)) {
            continue;
        }
        if (section.isEmpty() || !read_property(line, name, value)) {
            return lines.fail(QStringLiteral("is no \"NAME = VALUE\" of a section \"[LANGUAGE ID]\""));
        }
        if (!take(section, name, value)) {
            return false;
        }
    }
    return true;
}

/** "U+0020" or a single character. */
bool read_character(const QString& word, uint& character) {
    if (word.startsWith(QLatin1String("U+"))) {
        bool is_code = false;
        character = word.mid(2).toUInt(&is_code, 16);
        return is_code && character <= QChar::LastValidCodePoint;
    }
    const QVector<uint> characters = word.toUcs4();
    character = characters.value(0);
    return characters.size() == 1;
}

/** Characters and ranges "U+0000-U+001F", separated by blanks. */
bool read_characters(const QString& value, QString& characters) {
    for (const QString& word : value.split(QLatin1Char(' '), Qt::SkipEmptyParts)) {
        const QStringList ends = word.size() > 1 ? word.split(QLatin1Char('-')) : QStringList{word};
        uint first = 0;
        uint last = 0;
        if (ends.size() > 2 || !read_character(ends.first(), first) || !read_character(ends.last(), last) ||
            last < first || last - first > 0xff) {
            return false;
        }
        for (uint character = first; character <= last; ++character) {
            characters += QString::fromUcs4(&character, 1);
        }
    }
    return true;
}

} // namespace

bool read_keyboard(const QString& path, keyboard& board, QString& fault) {
    line_reader lines(path, fault);
    if (!lines.open()) {
        return false;
    }
    QString section;
    QString line;
    while (lines.next(line)) {
        if (read_section(line, section)) {
            if (section != QLatin1String(COMPOSITION)) {
                board.layers.push_back({section, {}});
            }
        } else if (!read_board_line(lines, section, line, board)) {
            return false;
        }
    }
    if (board.layers.empty()) {
        return lines.fail(QStringLiteral("there is no layer, \"[base]\""));
    }
    return check_functions(path, board, fault);
}

bool read_language_information(const QString& path, int language_id, language_information& information,
                               QString& fault) {
    line_reader lines(path, fault);
    const QString wanted = QString::number(language_id);
    return lines.open() &&
           read_sections(lines, [&](const QString& section, const QString& name, const QString& value) {
               const bool is_keyboard = name == QLatin1String("keyboard");
               if (!is_keyboard && name != QLatin1String("name")) {
                   return lines.fail(QStringLiteral("\"%1\" is neither name nor keyboard").arg(name));
               }
               if (section == wanted && is_keyboard) {
                   information.keyboards.append(value);
               } else if (section == wanted) {
                   information.name = value;
               }
               return true;
           });
}

bool read_prohibitions(const QString& path, int language_id, prohibitions& rules, QString& fault) {
    line_reader lines(path, fault);
    const QString wanted = QString::number(language_id);
    return lines.open() &&
           read_sections(lines, [&](const QString& section, const QString& name, const QString& value) {
               QString characters;
               if (!read_characters(value, characters)) {
                   return lines.fail(QStringLiteral("is no list of characters and ranges"));
               }
               if (section == wanted || section == QLatin1String(ALL_LANGUAGES)) {
                   rules[name] += characters;
               }
               return true;
           });
}

} // namespace velarion
