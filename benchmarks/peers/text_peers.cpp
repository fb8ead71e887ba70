#include "text_peers.h"

#include <QCoreApplication>
#include <QFile>
#include <QTranslator>

#include <clocale>
#include <cstdlib>
#include <libintl.h>
#include <stdexcept>

namespace velarion {

namespace {

constexpr char DOMAIN[] = "panel";

} // namespace

text_peers::text_peers(const std::string& folder)
    : translator_(new QTranslator) {
    if (!translator_->load(QString::fromStdString(folder + "/texts.qm"))) {
        throw std::runtime_error(folder + "/texts.qm cannot be loaded");
    }
    QCoreApplication::installTranslator(translator_.get());

    setenv("LANGUAGE", "de", 1);
    std::setlocale(LC_ALL, "C.UTF-8"); // in the locale "C" texts are not translated at all
    bindtextdomain(DOMAIN, folder.c_str());
    bind_textdomain_codeset(DOMAIN, "UTF-8");

    if (!QFile::exists(QString::fromStdString(folder + "/root.res"))) {
        return;
    }
    UErrorCode error = U_ZERO_ERROR;
    bundle_.reset(ures_openDirect(folder.c_str(), "root", &error));
    if (U_FAILURE(error)) {
        throw std::runtime_error(folder + "/root.res: " + u_errorName(error));
    }
}

text_peers::~text_peers() {
    QCoreApplication::removeTranslator(translator_.get());
}

QString text_peers::by_gettext(const char* key) {
    return QString::fromUtf8(dgettext(DOMAIN, key));
}

QString text_peers::by_translator(const char* key) {
    return QCoreApplication::translate(DOMAIN, key);
}

QString text_peers::by_icu(const char* key) const {
    UErrorCode error = U_ZERO_ERROR;
    int32_t length = 0;
    const UChar* text = ures_getStringByKey(bundle_.get(), key, &length, &error);
    return U_FAILURE(error) ? QString() : QString(reinterpret_cast<const QChar*>(text), length);
}

} // namespace velarion
