#include "xml_nesting_guard.h"

#pragma GCC diagnostic ignored "-Wdeprecated-declarations" // as for the event handler

namespace velarion {

xml_nesting_guard::xml_nesting_guard(QXmlReader* reader, int deepest)
    : reader_(reader)
    , handler_(reader->contentHandler())
    , deepest_(deepest)
    , depth_(0)
    , outer_prefixes_(0)
    , compared_(0) {
    reader_->setContentHandler(this);
}

xml_nesting_guard::~xml_nesting_guard() {
    if (reader_->contentHandler() == this) {
        reader_->setContentHandler(handler_);
    }
}

void xml_nesting_guard::setDocumentLocator(QXmlLocator* locator) {
    if (handler_) {
        handler_->setDocumentLocator(locator);
    }
}

bool xml_nesting_guard::startDocument() {
    return !handler_ || handler_->startDocument();
}

bool xml_nesting_guard::endDocument() {
    return !handler_ || handler_->endDocument();
}

bool xml_nesting_guard::startPrefixMapping(const QString& prefix, const QString& uri) {
    prefixes_.insert(prefix);
    return !handler_ || handler_->startPrefixMapping(prefix, uri);
}

/** Comes once, when the prefix is not in scope any more, however often it was mapped. */
bool xml_nesting_guard::endPrefixMapping(const QString& prefix) {
    prefixes_.erase(prefix);
    outer_prefixes_ = static_cast<qint64>(prefixes_.size());
    return !handler_ || handler_->endPrefixMapping(prefix);
}

bool xml_nesting_guard::startElement(const QString& namespace_uri, const QString& local_name,
                                     const QString& qualified_name, const QXmlAttributes& attributes) {
    const qint64 prefixes = static_cast<qint64>(prefixes_.size());
    compared_ += prefixes > FEW_PREFIXES ? prefixes * outer_prefixes_ : 0;
    outer_prefixes_ = prefixes;
    if (depth_ == deepest_ || compared_ > MOST_COMPARED) {
        return false;
    }
    ++depth_;
    return !handler_ || handler_->startElement(namespace_uri, local_name, qualified_name, attributes);
}

bool xml_nesting_guard::endElement(const QString& namespace_uri, const QString& local_name,
                                   const QString& qualified_name) {
    --depth_;
    return !handler_ || handler_->endElement(namespace_uri, local_name, qualified_name);
}

bool xml_nesting_guard::characters(const QString& text) {
    return !handler_ || handler_->characters(text);
}

bool xml_nesting_guard::ignorableWhitespace(const QString& text) {
    return !handler_ || handler_->ignorableWhitespace(text);
}

bool xml_nesting_guard::processingInstruction(const QString& target, const QString& instruction) {
    return !handler_ || handler_->processingInstruction(target, instruction);
}

bool xml_nesting_guard::skippedEntity(const QString& name) {
    return !handler_ || handler_->skippedEntity(name);
}

QString xml_nesting_guard::errorString() const {
    return handler_ ? handler_->errorString() : QString();
}

} // namespace velarion
