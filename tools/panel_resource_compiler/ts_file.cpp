#include "ts_file.h"

#include "checks.h"

#include <QBuffer>
#include <QXmlStreamReader>
#include <QXmlStreamWriter>

namespace velarion {

namespace {

constexpr char LANGUAGE_ELEMENT[] = "extra-panel-language";
constexpr char MARK_ELEMENT[] = "extra-exported-as";
constexpr char STALE[] = "The English text has changed since this translation was confirmed.";
constexpr char NO_GROUP[] = "no message";

/** The words of a message's name that tell the part of the panel: "NORMAL_TITLE" of "MSG_NORMAL_TITLE_COPY".
 */
QString group_of(const exchange_unit& unit) {
    if (unit.names.empty()) {
        return QString::fromLatin1(NO_GROUP);
    }
    const QString name = QString::fromStdString(unit.names[0]).section(QLatin1Char(' '), 0, 0);
    const int first = name.startsWith(QLatin1String("MSG_")) ? 1 : 0;
    return name.section(QLatin1Char('_'), first, first + 1);
}

class ts_writer {
public:
    explicit ts_writer(QByteArray& output)
        : xml_(&output) {
        xml_.setAutoFormatting(true);
        xml_.setAutoFormattingIndent(1);
    }

    void write(const exchange_document& document) {
        xml_.writeStartDocument();
        xml_.writeDTD(QStringLiteral("<!DOCTYPE TS>"));
        xml_.writeStartElement(QStringLiteral("TS"));
        xml_.writeAttribute(QStringLiteral("version"), QStringLiteral("2.1"));
        if (!document.locale.empty()) {
            xml_.writeAttribute(QStringLiteral("language"), QString::fromStdString(document.locale));
        }
        xml_.writeAttribute(QStringLiteral("sourcelanguage"), QStringLiteral("en"));
        xml_.writeTextElement(QLatin1String(LANGUAGE_ELEMENT), QString::fromStdString(document.language));
        std::map<QString, std::vector<const exchange_unit*>> groups;
        for (const exchange_unit& unit : document.units) {
            groups[group_of(unit)].push_back(&unit);
        }
        for (const auto& [name, units] : groups) {
            xml_.writeStartElement(QStringLiteral("context"));
            xml_.writeTextElement(QStringLiteral("name"), name);
            for (const exchange_unit* unit : units) {
                write_unit(*unit);
            }
            xml_.writeEndElement();
        }
        xml_.writeEndDocument();
    }

private:
    void write_unit(const exchange_unit& unit) {
        xml_.writeStartElement(QStringLiteral("message"));
        write_text("source", unit.source);
        write_text("comment", unit.key);
        std::string names;
        for (const std::string& name : unit.names) {
            names += (names.empty() ? "" : "\n") + name;
        }
        if (unit.is_stale) {
            names += (names.empty() ? "" : "\n") + std::string(STALE);
        }
        if (!names.empty()) {
            write_text("extracomment", names);
        }
        xml_.writeStartElement(QStringLiteral("translation"));
        if (unit.is_unfinished) {
            xml_.writeAttribute(QStringLiteral("type"), QStringLiteral("unfinished"));
        }
        end_with(unit.translation);
        write_text(MARK_ELEMENT, unit.exported);
        xml_.writeEndElement();
    }

    void write_text(const char* element, const std::string& text) {
        xml_.writeStartElement(QLatin1String(element));
        end_with(text);
    }

    /** Writes the text of the element, to which formatting may add nothing, and its end. */
    void end_with(const std::string& text) {
        xml_.setAutoFormatting(false);
        write_characters(text);
        xml_.writeEndElement();
        xml_.setAutoFormatting(true);
    }

    /** Control characters have no place in XML: TS names them. */
    void write_characters(const std::string& text) {
        QString plain;
        const auto flush = [this, &plain] {
            if (!plain.isEmpty()) {
                xml_.writeCharacters(plain);
            }
            plain.clear();
        };
        const QString all = QString::fromStdString(text);
        for (const QChar c : all) {
            const bool is_plain = c >= QLatin1Char(' ') || c == QLatin1Char('\n') || c == QLatin1Char('\t');
            if (is_plain && c.unicode() < 0xFFFE) {
                plain += c;
                continue;
            }
            flush();
            xml_.writeEmptyElement(QStringLiteral("byte"));
            xml_.writeAttribute(QStringLiteral("value"), QLatin1Char('x') + QString::number(c.unicode(), 16));
        }
        flush();
    }

    QXmlStreamWriter xml_;
};

class ts_reader {
public:
    ts_reader(const std::string& path, const std::string& contents, diagnostics& report)
        : xml_(QByteArray::fromRawData(contents.data(), static_cast<int>(contents.size())))
        , path_(path)
        , report_(report) {}

    exchange_document read() {
        if (xml_.readNextStartElement()) {
            if (xml_.name() == QLatin1String("TS")) {
                read_children([this](const QString& name) { take_part(name); });
            } else {
                xml_.raiseError(
                    QStringLiteral("is no TS file: its root is \"%1\"").arg(xml_.name().toString()));
            }
        }
        if (xml_.hasError()) {
            const source_place where{path_, static_cast<std::size_t>(xml_.lineNumber()),
                                     static_cast<std::size_t>(xml_.columnNumber())};
            report_.error(CHECK_EXCHANGE, where, xml_.errorString().toStdString());
        }
        return std::move(document_);
    }

private:
    /** Calls @p take for each child of the element, which it reads to its end. */
    template <typename TAKE> void read_children(TAKE take) {
        while (xml_.readNextStartElement()) {
            take(xml_.name().toString());
        }
    }

    source_place place() const { return {path_, static_cast<std::size_t>(xml_.lineNumber())}; }

    void take_part(const QString& name) {
        if (name == QLatin1String(LANGUAGE_ELEMENT)) {
            document_.language = read_text();
        } else if (name == QLatin1String("context")) {
            read_children([this](const QString& part) {
                part == QLatin1String("message") ? take_message() : xml_.skipCurrentElement();
            });
        } else if (name == QLatin1String("message")) {
            take_message();
        } else {
            xml_.skipCurrentElement();
        }
    }

    void take_message() {
        exchange_unit unit;
        unit.place = place();
        bool is_gone = false;
        const bool has_numbers = xml_.attributes().value(QLatin1String("numerus")) == QLatin1String("yes");
        read_children([this, &unit, &is_gone](const QString& name) {
            if (name == QLatin1String("source")) {
                unit.source = read_text();
            } else if (name == QLatin1String("comment")) {
                unit.key = read_text();
            } else if (name == QLatin1String(MARK_ELEMENT)) {
                unit.exported = read_text();
            } else if (name == QLatin1String("translation")) {
                const QString type = xml_.attributes().value(QLatin1String("type")).toString();
                is_gone = type == QLatin1String("vanished") || type == QLatin1String("obsolete");
                unit.is_unfinished = type == QLatin1String("unfinished");
                unit.translation = read_text();
            } else {
                xml_.skipCurrentElement();
            }
        });
        if (xml_.hasError() || is_gone) {
            return;
        }
        if (has_numbers) {
            report_.error(CHECK_EXCHANGE, unit.place,
                          "row " + unit.key + " has plural forms, which the panel does not know");
            return;
        }
        unit.is_unfinished = unit.is_unfinished || unit.translation.empty();
        document_.units.push_back(std::move(unit));
    }

    std::string read_text() {
        QString text;
        while (xml_.readNext() != QXmlStreamReader::EndElement && !xml_.hasError()) {
            if (xml_.isCharacters() || xml_.isEntityReference()) {
                text += xml_.text();
            } else if (xml_.isStartElement()) {
                text += read_byte();
            }
        }
        return text.toStdString();
    }

    QString read_byte() {
        const QString value = xml_.attributes().value(QLatin1String("value")).toString();
        const bool is_hexadecimal = value.startsWith(QLatin1Char('x'));
        bool is_number = false;
        const ushort code = value.mid(is_hexadecimal ? 1 : 0).toUShort(&is_number, is_hexadecimal ? 16 : 10);
        if (xml_.name() != QLatin1String("byte") || !is_number || code == 0) {
            report_.error(CHECK_EXCHANGE, place(),
                          "\"" + xml_.name().toString().toStdString() +
                              "\" within a text: the panel knows neither variants nor plural forms");
        }
        xml_.skipCurrentElement();
        return is_number ? QString(QChar(code)) : QString();
    }

    QXmlStreamReader xml_;
    const std::string& path_;
    diagnostics& report_;
    exchange_document document_;
};

} // namespace

std::string write_ts(const exchange_document& document) {
    QByteArray contents;
    ts_writer(contents).write(document);
    return contents.toStdString();
}

exchange_document read_ts(const std::string& path, const std::string& contents, diagnostics& report) {
    return ts_reader(path, contents, report).read();
}

} // namespace velarion
