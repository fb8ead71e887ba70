#include "dvc_pnl_utl_xml_parameter_handler.h"

#include "dvc_pnl_utl_toolkit.h"
#include "dvc_pnl_utl_xml_handler_base.h"
#include "dvc_pnl_utl_xml_sax_reader.h"
#include "file_guard.h"
#include "trace.h"

#include <QFile>
#include <QXmlSimpleReader>
#include <QtDebug>

#include <algorithm>

#pragma GCC diagnostic ignored "-Wdeprecated-declarations" // see the header

namespace velarion {

namespace {

constexpr int RESULT_READ = 1;
constexpr int RESULT_FAILURE = -65536;
constexpr int HANDLER_GOES_ON = 1;
constexpr int TRACE_MODULE = 0x5302;
constexpr int TRACE_GROUP = 0x102;
constexpr int TRACE_KIND_ERROR = 5;
constexpr char SOURCE_NAME[] = "dvc_pnl_utl_xml_parameter_handler";
constexpr int TEXT_MEMORY = 256;            // characters of the buffer at first
constexpr int MOST_KEPT_TEXT_MEMORY = 4096; // a buffer that grew beyond is given back at the element's end

bool is_ascii_space(ushort unit) {
    return unit == ' ' || (unit >= '\t' && unit <= '\r');
}

void convert_to_utf8(const QString& text, std::string& utf8) {
    const QByteArray bytes = text.toUtf8();
    utf8.assign(bytes.constData(), static_cast<std::string::size_type>(bytes.size()));
}

/** Element names are ASCII as a rule: no detour through the toolkit's codec. */
void convert_name(const QString& name, std::string& utf8) {
    utf8.resize(static_cast<std::string::size_type>(name.size()));
    char* place = &utf8[0];
    unsigned int all = 0;
    const QChar* const end = name.constData() + name.size();
    for (const QChar* c = name.constData(); c != end; ++c) {
        all |= c->unicode();
        *place++ = static_cast<char>(c->unicode());
    }
    if (all > 0x7f) {
        convert_to_utf8(name, utf8);
    }
}

/** Converts a text to UTF-8 with its white space simplified, as long as it is ASCII. @return whether it is */
bool convert_simplified(const QString& text, std::string& utf8) {
    utf8.resize(static_cast<std::string::size_type>(text.size()));
    char* const first = &utf8[0];
    char* place = first;
    unsigned int all = 0;
    bool is_space_due = false;
    const QChar* const end = text.constData() + text.size();
    for (const QChar* c = text.constData(); c != end; ++c) {
        const ushort unit = c->unicode();
        all |= unit;
        if (is_ascii_space(unit)) {
            is_space_due = place != first;
            continue;
        }
        if (is_space_due) {
            *place++ = ' ';
            is_space_due = false;
        }
        *place++ = static_cast<char>(unit);
    }
    utf8.resize(static_cast<std::string::size_type>(place - first));
    return all <= 0x7f;
}

/** Replaces a text by its simplified form in its own memory, and converts that to UTF-8. */
void simplify(QString& text, std::string& utf8) {
    if (!convert_simplified(text, utf8)) {
        text = text.simplified();
        convert_to_utf8(text, utf8);
        return;
    }
    text.resize(static_cast<int>(utf8.size()));
    std::transform(utf8.begin(), utf8.end(), text.begin(), [](char c) { return QLatin1Char(c); });
}

void empty_buffer(QString& text) {
    if (text.capacity() > MOST_KEPT_TEXT_MEMORY) {
        text = QString();
        text.reserve(TEXT_MEMORY);
    }
    text.resize(0);
}

} // namespace

dvc_pnl_utl_xml_parameter_handler::dvc_pnl_utl_xml_parameter_handler()
    : handler_(nullptr) {
    text_.reserve(TEXT_MEMORY);
}

dvc_pnl_utl_xml_parameter_handler::~dvc_pnl_utl_xml_parameter_handler() {}

int dvc_pnl_utl_xml_parameter_handler::dvc_pnl_utl_execute(dvc_pnl_utl_xml_handler_base* handler,
                                                           const char* path) {
    handler_ = handler;
    if (!handler || !path) {
        return RESULT_FAILURE;
    }
    const QString file_name = dvc_pnl_utl_from_8bit(path);
    if (!QFile::exists(file_name) || is_special_file(QFile::encodeName(file_name).constData())) {
        return RESULT_FAILURE;
    }
    QXmlSimpleReader reader;
    dvc_pnl_utl_xml_sax_reader sax_reader(&reader);
    return sax_reader.parseExecute(this, file_name.toUtf8().constData()) ? RESULT_READ : RESULT_FAILURE;
}

std::unique_ptr<dvc_pnl_utl_xml_parameter_handler::element_texts>
dvc_pnl_utl_xml_parameter_handler::take_texts() {
    return spare_texts_ ? std::move(spare_texts_) : std::make_unique<element_texts>();
}

bool dvc_pnl_utl_xml_parameter_handler::startDocument() {
    return true;
}

bool dvc_pnl_utl_xml_parameter_handler::endDocument() {
    return true;
}

bool dvc_pnl_utl_xml_parameter_handler::startElement(const QString& /*namespace_uri*/,
                                                     const QString& /*local_name*/,
                                                     const QString& qualified_name,
                                                     const QXmlAttributes& /*attributes*/) {
    if (!handler_) {
        return false;
    }
    std::unique_ptr<element_texts> texts = take_texts();
    convert_name(qualified_name, texts->name);
    const int answer = handler_->dvc_pnl_utl_start_element(texts->name);
    spare_texts_ = std::move(texts);
    return answer == HANDLER_GOES_ON;
}

bool dvc_pnl_utl_xml_parameter_handler::endElement(const QString& /*namespace_uri*/,
                                                   const QString& /*local_name*/,
                                                   const QString& qualified_name) {
    if (!handler_) {
        return false;
    }
    std::unique_ptr<element_texts> texts = take_texts();
    convert_name(qualified_name, texts->name);
    simplify(text_, texts->text);
    const int answer = handler_->dvc_pnl_utl_end_element(texts->name, texts->text);
    empty_buffer(text_);
    spare_texts_ = std::move(texts);
    return answer == HANDLER_GOES_ON;
}

bool dvc_pnl_utl_xml_parameter_handler::characters(const QString& text) {
    text_ += text;
    return true;
}

bool dvc_pnl_utl_xml_parameter_handler::warning(const QXmlParseException& /*exception*/) {
    return false;
}

bool dvc_pnl_utl_xml_parameter_handler::error(const QXmlParseException& exception) {
    qDebug("XML Error lines:%d column:%d %s", exception.lineNumber(), exception.columnNumber(),
           dvc_pnl_utl_to_8bit(exception.message()).constData());
    return false;
}

bool dvc_pnl_utl_xml_parameter_handler::fatalError(const QXmlParseException& exception) {
    const int line = exception.lineNumber();
    const int column = exception.columnNumber();
    const QByteArray message = dvc_pnl_utl_to_8bit(exception.message());
    qDebug("XML Fatal Error lines:%d column:%d %s", line, column, message.constData());
    emwGENTrcPrintf(TRACE_MODULE, TRACE_GROUP, TRACE_KIND_ERROR,
                    "%s:%d:%s:XML Fatal Error lines:%d column:%d %s\n", SOURCE_NAME, __LINE__, "fatalError",
                    line, column, message.constData());
    return false;
}

} // namespace velarion
