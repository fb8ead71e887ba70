#include "xml_file.h"

#include <QString>

namespace {

std::vector<std::string> g_lines;

// The handlers differ in name and kind; no library source needs one.
#if QT_VERSION >= 0x050000
void keep_line(QtMsgType, const QMessageLogContext&, const QString& text) {
    g_lines.push_back(text.toUtf8().constData());
}
#else
void keep_line(QtMsgType, const char* text) {
    g_lines.push_back(text);
}
#define qInstallMessageHandler qInstallMsgHandler
#endif

} // namespace

std::vector<std::string>& debug_output() {
    qInstallMessageHandler(keep_line);
    return g_lines;
}
