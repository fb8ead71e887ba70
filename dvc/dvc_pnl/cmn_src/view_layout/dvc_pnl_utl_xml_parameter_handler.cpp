#include "dvc_pnl_utl_xml_parameter_handler.h"

#include "dvc_pnl_utl_toolkit.h"
#include "dvc_pnl_utl_xml_handler_base.h"
#include "dvc_pnl_utl_xml_sax_reader.h"
#include "trace.h"

#include <QFile>
#include <QXmlSimpleReader>
#include <QtDebug>

#pragma GCC diagnostic ignored "-Wdeprecated-declarations" // see the header

namespace velarion {

namespace {

const int RESULT_READ = 1;
const int RESULT_FAILURE = -65536;
const int HANDLER_GOES_ON = 1;
const int TRACE_MODULE = 0x5302;
const int TRACE_GROUP = 0x102;
const int TRACE_KIND_ERROR = 5;
const char SOURCE_NAME[] = "dvc_pnl_utl_xml_parameter_handler";
const char NAMESPACES_FEATURE[] = "http://xml.org/sax/features/namespaces";
const int TEXT_MEMORY = 256;            // characters of the buffer at first
const int MOST_KEPT_TEXT_MEMORY = 4096; // a buffer that grew beyond is given back at the element's end

bool is_ascii_space(ushort unit) {
    return unit == ' ' || (unit >= '\t' && unit <= '\r');
}

void convert_to_utf8(const QString& text, std::string& utf8) {
    const QByteArray bytes = text.toUtf8();
    utf8.assign(bytes.constData(), static_cast<std::string::size_type>(bytes.size()));
}

/** Element names are ASCII as a rule: no detour through the toolkit's codec. */
void convert_name(const QString& name, std::string& utf8) {
    utf8.clear();
    const QChar* const end = name.constData() + name.size();
    for (const QChar* c = name.constData(); c != end; ++c) {
        if (c->unicode() > 0x7f) {
            convert_to_utf8(name, utf8);
            return;
        }
        utf8.push_back(static_cast<char>(c->unicode()));
    }
}

/** QString::simplified() and the conversion in one pass, as long as the text is ASCII. */
void convert_simplified(const QString& text, std::string& utf8) {
    utf8.clear();
    bool is_space_due = false;
    const QChar* const end = text.constData() + text.size();
    for (const QChar* c = text.constData(); c != end; ++c) {
        const ushort unit = c->unicode();
        if (unit > 0x7f) {
            convert_to_utf8(text.simplified(), utf8);
            return;
        }
        if (is_ascii_space(unit)) {
            is_space_due = !utf8.empty();
            continue;
        }
        if (is_space_due) {
            utf8.push_back(' ');
            is_space_due = false;
        }
        utf8.push_back(static_cast<char>(unit));
    }
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
    : handler_(nullptr)
    , depth_(0) {
    text_.reserve(TEXT_MEMORY);
}

dvc_pnl_utl_xml_parameter_handler::~dvc_pnl_utl_xml_parameter_handler() {}

int dvc_pnl_utl_xml_parameter_handler::dvc_pnl_utl_execute(dvc_pnl_utl_xml_handler_base* handler,
                                                           const char* path) {
    handler_ = handler;
    if (handler == nullptr || path == nullptr) {
        return RESULT_FAILURE;
    }
    const QString file_name = dvc_pnl_utl_from_8bit(path);
    if (!QFile::exists(file_name)) {
        return RESULT_FAILURE;
    }
    QXmlSimpleReader reader;
    // Only names as written are used. Without the feature hostile prefixes cost no memory either.
    reader.setFeature(QLatin1String(NAMESPACES_FEATURE), false);
    dvc_pnl_utl_xml_sax_reader sax_reader(&reader);
    return sax_reader.parseExecute(this, file_name.toUtf8().constData()) ? RESULT_READ : RESULT_FAILURE;
}

bool dvc_pnl_utl_xml_parameter_handler::startDocument() {
    depth_ = 0;
    return true;
}

bool dvc_pnl_utl_xml_parameter_handler::endDocument() {
    return true;
}

bool dvc_pnl_utl_xml_parameter_handler::startElement(const QString& /*namespace_uri*/,
                                                     const QString& /*local_name*/,
                                                     const QString& qualified_name,
                                                     const QXmlAttributes& /*attributes*/) {
    if (depth_ == DEEPEST_ELEMENT) {
        return false;
    }
    ++depth_;
    convert_name(qualified_name, name_utf8_);
    return handler_->dvc_pnl_utl_start_element(name_utf8_) == HANDLER_GOES_ON;
}

bool dvc_pnl_utl_xml_parameter_handler::endElement(const QString& /*namespace_uri*/,
                                                   const QString& /*local_name*/,
                                                   const QString& qualified_name) {
    --depth_;
    convert_name(qualified_name, name_utf8_);
    convert_simplified(text_, text_utf8_);
    empty_buffer(text_);
    return handler_->dvc_pnl_utl_end_element(name_utf8_, text_utf8_) == HANDLER_GOES_ON;
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
