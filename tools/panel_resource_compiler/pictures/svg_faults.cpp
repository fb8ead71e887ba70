#include "svg_faults.h"

#include "checks.h"
#include "svg_rules.h"

#include <QHash>
#include <QRegularExpression>
#include <QSet>
#include <QTextCodec>
#include <QXmlStreamReader>

#include <algorithm>
#include <cmath>

namespace velarion {

namespace {

const QString SVG_NAMESPACE = QStringLiteral("http://www.w3.org/2000/svg");
const QString XLINK_NAMESPACE = QStringLiteral("http://www.w3.org/1999/xlink");

QString decoded(const QByteArray& document) {
    static const QRegularExpression declared(QStringLiteral("^<\\?xml[^>]*encoding\\s*=\\s*[\"']([^\"']+)"));
    const QRegularExpressionMatch match = declared.match(QString::fromLatin1(document.left(200)));
    QTextCodec* codec = match.hasMatch() ? QTextCodec::codecForName(match.captured(1).toLatin1()) : nullptr;
    codec = QTextCodec::codecForUtfText(document, codec ? codec : QTextCodec::codecForName("UTF-8"));
    return codec->toUnicode(document);
}

/** Told of one document; the same fault of many elements counts once. */
constexpr int MOST_FAULTS = 200;
constexpr int LONGEST_TEXT = 300;

/** What an element hands on to those within it, as far as it matters here. */
struct open_element {
    QString name;
    bool is_foreign = false; ///< of another namespace, or within such an element
    bool is_within_filter = false;
    bool has_fill = true;
    bool has_stroke = false;
    int drawn = 0;           ///< elements drawn within it
    int see_through_at = -1; ///< where its opacity stands in the text, or -1
};

class fault_finder {
public:
    explicit fault_finder(const QByteArray& document)
        : text_(decoded(document)) {}

    std::vector<svg_fault> find() {
        QXmlStreamReader xml(text_);
        while (!xml.atEnd()) {
            xml.readNext();
            if (xml.isStartElement()) {
                begin(xml);
            } else if (xml.isEndElement()) {
                end();
            } else if (xml.isProcessingInstruction() &&
                       xml.processingInstructionTarget() == "xml-stylesheet") {
                add(offset_of_tag(xml), CHECK_SVG_LOAD,
                    QStringLiteral("a style sheet of its own makes the panel refuse the picture; remove it"),
                    true);
            }
        }
        if (xml.hasError()) {
            add(static_cast<int>(xml.characterOffset()), CHECK_SVG_LOAD,
                QStringLiteral("is not well-formed: ") + xml.errorString(), true);
        } else {
            check_references();
        }
        return finished();
    }

private:
    struct reference {
        int at;
        QString id;
        bool is_use;
    };
    struct counted_fault {
        svg_fault fault;
        int at;
        int count;
    };

    int offset_of_tag(const QXmlStreamReader& xml) const {
        const int behind = static_cast<int>(xml.characterOffset());
        return std::max(0, text_.lastIndexOf(QLatin1Char('<'), behind - 1));
    }

    int offset_of_attribute(int tag, const QString& name) const {
        const QRegularExpression expression(QStringLiteral("[\\s]") + QRegularExpression::escape(name) +
                                            QStringLiteral("\\s*="));
        const int tag_end = text_.indexOf(QLatin1Char('>'), tag);
        const int found = text_.mid(tag, tag_end - tag).indexOf(expression);
        return found < 0 ? tag : tag + found + 1;
    }

    void add(int at, const char* check, const QString& text, bool is_fatal = false) {
        const QString shown =
            text.size() > LONGEST_TEXT ? text.left(LONGEST_TEXT) + QStringLiteral("...") : text;
        const QString key = QLatin1String(check) + shown;
        if (faults_.size() >= MOST_FAULTS && !is_fatal && !faults_.contains(key)) {
            return;
        }
        counted_fault& entry = faults_[key];
        if (entry.count++ == 0) {
            const int line_start = at == 0 ? 0 : text_.lastIndexOf(QLatin1Char('\n'), at - 1) + 1;
            entry.at = at;
            entry.fault = {static_cast<std::size_t>(text_.leftRef(at).count(QLatin1Char('\n'))) + 1,
                           static_cast<std::size_t>(at - line_start) + 1, check, shown.toStdString(),
                           is_fatal};
        }
    }

    void begin(const QXmlStreamReader& xml) {
        open_element element = open_.empty() ? open_element() : open_.back();
        element.drawn = 0;
        element.see_through_at = -1;
        element.is_within_filter = element.is_within_filter || element.name == QLatin1String("filter") ||
                                   element.name == QLatin1String("metadata");
        element.name = xml.name().toString();
        element.is_foreign =
            element.is_foreign || (xml.namespaceUri() != SVG_NAMESPACE && !xml.namespaceUri().isEmpty());
        if (!element.is_foreign && !element.is_within_filter) {
            const int tag = offset_of_tag(xml);
            check_element(xml, tag, element);
            check_attributes(xml.attributes(), tag, element);
        }
        open_.push_back(element);
    }

    void check_element(const QXmlStreamReader& xml, int tag, const open_element& element) {
        const QString name = QLatin1Char('<') + element.name + QStringLiteral(">: ");
        if (open_.empty()) {
            check_root(xml, tag);
        } else if (element.name == QLatin1String("svg")) {
            add(tag, CHECK_SVG_ELEMENT,
                name + QStringLiteral("an svg within the svg keeps neither its place nor its size; use a g "
                                      "with a transform"));
        } else {
            const QString fault = fault_of_element(element.name);
            if (!fault.isEmpty()) {
                add(tag, element.name == QLatin1String("style") ? CHECK_SVG_STYLE : CHECK_SVG_ELEMENT,
                    name + fault);
            }
        }
        const QXmlStreamAttributes attributes = xml.attributes();
        if (element.name == QLatin1String("ellipse") && (!attributes.hasAttribute(QStringLiteral("rx")) ||
                                                         !attributes.hasAttribute(QStringLiteral("ry")))) {
            add(tag, CHECK_SVG_PROPERTY, name + QStringLiteral("without both rx and ry nothing is drawn"));
        }
    }

    void check_root(const QXmlStreamReader& xml, int tag) {
        const QXmlStreamAttributes attributes = xml.attributes();
        if (xml.name() != QLatin1String("svg")) {
            add(tag, CHECK_SVG_LOAD,
                QStringLiteral("is no SVG document: it begins with <%1>").arg(xml.name().toString()), true);
            return;
        }
        const QStringList box = attributes.value(QLatin1String("viewBox"))
                                    .toString()
                                    .split(QRegularExpression(QStringLiteral("[\\s,]+")), Qt::SkipEmptyParts);
        if (box.size() != 4) {
            add(tag, CHECK_SVG_SIZE,
                QStringLiteral("has no viewBox of four numbers; its size is guessed from what it draws"));
            return;
        }
        bool has_width = false;
        bool has_height = false;
        const double width = attributes.value(QLatin1String("width"))
                                 .toString()
                                 .remove(QStringLiteral("px"))
                                 .toDouble(&has_width);
        const double height = attributes.value(QLatin1String("height"))
                                  .toString()
                                  .remove(QStringLiteral("px"))
                                  .toDouble(&has_height);
        const double expected = width * box[3].toDouble();
        if (has_width && has_height &&
            std::abs(expected - height * box[2].toDouble()) > 0.01 * std::abs(expected)) {
            add(offset_of_attribute(tag, QStringLiteral("viewBox")), CHECK_SVG_SIZE,
                QStringLiteral("the viewBox has another shape than width and height: it is stretched"));
        }
    }

    void check_attributes(const QXmlStreamAttributes& attributes, int tag, open_element& element) {
        const bool is_root = open_.empty();
        for (const QXmlStreamAttribute& attribute : attributes) {
            const QString name = attribute.qualifiedName().toString();
            const QString value = attribute.value().toString().trimmed();
            const int at = offset_of_attribute(tag, name);
            if (name == QLatin1String("id")) {
                ids_.insert(value, at);
            } else if (attribute.name() == QLatin1String("href")) {
                check_href(attribute, at, element);
            } else if (name == QLatin1String("style")) {
                for (const QString& declaration : value.split(QLatin1Char(';'), Qt::SkipEmptyParts)) {
                    check_declaration(declaration, at, element);
                }
            } else if (attribute.prefix().isEmpty() &&
                       !(is_root && (name == QLatin1String("width") || name == QLatin1String("height")))) {
                check_property(name, value, at, element);
            }
        }
        note_drawn(element);
        if (attributes.value(QLatin1String("gradientUnits")) == QLatin1String("userSpaceOnUse")) {
            check_gradient_lengths(attributes, tag);
        }
    }

    void check_gradient_lengths(const QXmlStreamAttributes& attributes, int tag) {
        for (const QXmlStreamAttribute& attribute : attributes) {
            const QString name = attribute.name().toString();
            if (is_length(name) && attribute.value().endsWith(QLatin1Char('%'))) {
                add(offset_of_attribute(tag, name), CHECK_SVG_UNIT,
                    QStringLiteral("\"%1\": with userSpaceOnUse percents are not understood; write numbers")
                        .arg(name));
            }
        }
    }

    void check_declaration(const QString& declaration, int at, open_element& element) {
        const int colon = declaration.indexOf(QLatin1Char(':'));
        const QString name = declaration.left(colon).trimmed();
        const QString value = declaration.mid(colon + 1).trimmed();
        const QString fault = fault_of_style_property(name);
        if (!fault.isEmpty()) {
            add(at, CHECK_SVG_STYLE, QStringLiteral("\"%1\": ").arg(name) + fault);
        } else if (value.contains(QLatin1Char('!')) || value.contains(QLatin1String("var("))) {
            add(at, CHECK_SVG_STYLE,
                QStringLiteral("\"%1: %2\" is not understood; write the value alone").arg(name, value));
        } else {
            check_property(name, value, at, element);
        }
    }

    void check_property(const QString& name, const QString& value, int at, open_element& element) {
        const QString fault = fault_of_property(element.name, name, value);
        if (!fault.isEmpty()) {
            add(at, CHECK_SVG_PROPERTY, QStringLiteral("\"%1\": ").arg(name) + fault);
        } else if (is_paint(name)) {
            check_paint(name, value, at, element);
        } else if (is_length(name) && element.name != QLatin1String("svg")) {
            check_length(name, value, at);
        }
        if (name == QLatin1String("opacity") && value.toDouble() < 1 && value.toDouble() > 0) {
            element.see_through_at = at;
        }
    }

    void check_paint(const QString& name, const QString& value, int at, open_element& element) {
        const QString fault = fault_of_paint(value);
        if (!fault.isEmpty()) {
            add(at, CHECK_SVG_COLOR, QStringLiteral("\"%1\": ").arg(name) + fault);
        }
        const QString id = paint_reference(value);
        if (!id.isEmpty()) {
            references_.push_back({at, id, false});
        }
        const bool is_drawn = value != QLatin1String("none") && value != QLatin1String("transparent");
        if (name == QLatin1String("fill") && value != QLatin1String("inherit")) {
            element.has_fill = is_drawn;
        } else if (name == QLatin1String("stroke") && value != QLatin1String("inherit")) {
            element.has_stroke = is_drawn;
        }
    }

    void check_length(const QString& name, const QString& value, int at) {
        const QString fault = fault_of_length(name, value);
        if (!fault.isEmpty()) {
            add(at, CHECK_SVG_UNIT, fault);
        }
    }

    void check_href(const QXmlStreamAttribute& attribute, int at, const open_element& element) {
        if (element.name == QLatin1String("a")) {
            return;
        }
        const QString value = attribute.value().toString().trimmed();
        if (attribute.qualifiedName() != QLatin1String("xlink:href")) {
            const bool is_renamed = attribute.namespaceUri() == XLINK_NAMESPACE;
            add(at, CHECK_SVG_HREF,
                QStringLiteral("\"%1\" is not read; write xlink:href%2")
                    .arg(attribute.qualifiedName().toString(),
                         is_renamed
                             ? QString()
                             : QStringLiteral(", and xmlns:xlink=\"%1\" at the svg").arg(XLINK_NAMESPACE)));
        }
        if (value.startsWith(QLatin1Char('#'))) {
            references_.push_back({at, value.mid(1), element.name == QLatin1String("use")});
        } else if (element.name == QLatin1String("use")) {
            add(at, CHECK_SVG_HREF,
                QStringLiteral("\"%1\": another file is not read; copy what it holds").arg(value.left(40)));
        }
    }

    void note_drawn(const open_element& element) {
        if (!is_drawn_element(element.name)) {
            return;
        }
        if (!open_.empty()) {
            ++open_.back().drawn;
        }
        if (element.see_through_at >= 0 && element.has_fill && element.has_stroke &&
            element.name != QLatin1String("image") && element.name != QLatin1String("use")) {
            add(element.see_through_at, CHECK_SVG_OPACITY,
                QStringLiteral("the fill shows through the see-through stroke; draw fill and stroke apart"));
        }
    }

    void end() {
        const open_element element = open_.back();
        open_.pop_back();
        if (!open_.empty()) {
            open_.back().drawn += element.drawn;
        }
        if (element.see_through_at >= 0 && element.drawn > 1) {
            add(element.see_through_at, CHECK_SVG_OPACITY,
                QStringLiteral("a group's opacity counts for each of its parts: where they overlap, the "
                               "lower one shows through"));
        }
    }

    void check_references() {
        for (const reference& use : references_) {
            const auto target = ids_.constFind(use.id);
            if (target == ids_.constEnd()) {
                add(use.at, CHECK_SVG_HREF, QStringLiteral("\"#%1\" is not in the document").arg(use.id));
            } else if (use.is_use && *target > use.at) {
                add(use.at, CHECK_SVG_HREF,
                    QStringLiteral(
                        "\"#%1\" stands behind its use, where the device does not find it; move it before")
                        .arg(use.id));
            }
        }
    }

    std::vector<svg_fault> finished() const {
        std::vector<counted_fault> found(faults_.begin(), faults_.end());
        std::sort(found.begin(), found.end(),
                  [](const counted_fault& a, const counted_fault& b) { return a.at < b.at; });
        std::vector<svg_fault> result;
        for (const counted_fault& entry : found) {
            result.push_back(entry.fault);
            if (entry.count > 1) {
                result.back().text += " (" + std::to_string(entry.count) + " times)";
            }
        }
        return result;
    }

    QString text_;
    std::vector<open_element> open_;
    QHash<QString, int> ids_; ///< where each stands
    std::vector<reference> references_;
    QHash<QString, counted_fault> faults_;
};

} // namespace

std::vector<svg_fault> find_svg_faults(const QByteArray& document) {
    return fault_finder(document).find();
}

} // namespace velarion
