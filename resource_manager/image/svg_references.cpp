#include "svg_references.h"

#include <QDir>
#include <QFileInfo>
#include <QUrl>
#include <QXmlStreamReader>
#include <QXmlStreamWriter>

namespace velarion {

namespace {

constexpr char REFERENCE[] = "xlink:href";

bool is_relative(const QString& reference) {
    return !reference.isEmpty() && !reference.startsWith(QLatin1String("data")) &&
           QUrl(reference).isRelative() && QFileInfo(reference).isRelative();
}

/** Writes an element's begin. @return whether it had a relative reference */
bool write_element(const QXmlStreamReader& reader, const QDir& folder, QXmlStreamWriter& writer) {
    const bool is_image = reader.name() == QLatin1String("image");
    bool is_changed = false;
    writer.writeStartElement(reader.qualifiedName().toString());
    for (const QXmlStreamAttribute& attribute : reader.attributes()) {
        const QString name = attribute.qualifiedName().toString();
        QString value = attribute.value().toString();
        if (is_image && name == QLatin1String(REFERENCE) && is_relative(value.trimmed())) {
            value = folder.absoluteFilePath(value.trimmed());
            is_changed = true;
        }
        writer.writeAttribute(name, value);
    }
    return is_changed;
}

} // namespace

QByteArray with_absolute_references(const QByteArray& document, const QString& path) {
    const QDir folder = QFileInfo(path).absoluteDir();
    QByteArray written;
    QXmlStreamWriter writer(&written);
    QXmlStreamReader reader(document);
    reader.setNamespaceProcessing(false);
    bool is_changed = false;
    while (!reader.atEnd()) {
        switch (reader.readNext()) {
        case QXmlStreamReader::StartElement:
            is_changed |= write_element(reader, folder, writer);
            break;
        case QXmlStreamReader::EndElement:
            writer.writeEndElement();
            break;
        case QXmlStreamReader::Characters:
            if (reader.isCDATA()) {
                writer.writeCDATA(reader.text().toString());
            } else {
                writer.writeCharacters(reader.text().toString());
            }
            break;
        case QXmlStreamReader::Comment:
        case QXmlStreamReader::EntityReference:
            writer.writeComment(QString()); // keeps the texts beside it apart
            break;
        default:
            break;
        }
    }
    return is_changed && !reader.hasError() ? written : document;
}

} // namespace velarion
