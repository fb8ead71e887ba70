#ifndef DVC_PNL_UTL_TOOLKIT_H
#define DVC_PNL_UTL_TOOLKIT_H

#include <QByteArray>
#include <QString>
#include <QtGlobal>

/**
 * The places where Qt 4.8 and Qt 5.15 differ. No other source of the library asks for the
 * toolkit's version.
 */
namespace velarion {

/**
 * Converts an 8-bit string with the codec that the application set for such strings.
 *
 * Qt 4.8 uses QTextCodec::codecForCStrings(), and Latin-1 when none is set; Qt 5.15 knows no such
 * codec and always uses Latin-1.
 *
 * @param text  converted up to its first NUL; null gives an empty text
 * @return the text, never a null QString
 */
inline QString dvc_pnl_utl_from_8bit(const char* text) {
    if (!text || *text == '\0') {
        return QString::fromLatin1("");
    }
#if QT_VERSION < 0x050000
    return QString::fromAscii(text);
#else
    return QString::fromLatin1(text);
#endif
}

/** The reverse of dvc_pnl_utl_from_8bit(); characters that the codec lacks come out as it replaces them. */
inline QByteArray dvc_pnl_utl_to_8bit(const QString& text) {
#if QT_VERSION < 0x050000
    return text.toAscii();
#else
    return text.toLatin1();
#endif
}

} // namespace velarion

#endif
