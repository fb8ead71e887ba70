#include "dvc_pnl_utl_xml_guarded_source.h"

#include "file_guard.h"

#include <QFile>

#pragma GCC diagnostic ignored "-Wdeprecated-declarations" // as for the event handler

namespace velarion {

dvc_pnl_utl_xml_guarded_source::dvc_pnl_utl_xml_guarded_source(QFile* file)
    : QXmlInputSource(file)
    , is_refused_(is_special_file(QFile::encodeName(file->fileName()).constData())) {}

void dvc_pnl_utl_xml_guarded_source::fetchData() {
    if (is_refused_) {
        setData(QString());
        return;
    }
    QXmlInputSource::fetchData();
    if (counter_.is_finished()) {
        return;
    }
    const QString text = data();
    const QChar* const end = text.constData() + text.size();
    for (const QChar* c = text.constData(); c != end && !counter_.is_finished(); ++c) {
        if (!counter_.take(c->unicode())) {
            is_refused_ = true;
            setData(text.left(static_cast<int>(c - text.constData())));
            return;
        }
    }
}

} // namespace velarion
