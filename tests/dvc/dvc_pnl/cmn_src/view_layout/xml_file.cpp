#include "xml_file.h"

#include <QString>

#include <gtest/gtest.h>

#include <cstdio>
#include <cstdlib>
#include <unistd.h>

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

xml_file::xml_file(const std::string& contents)
    : path_("/tmp/panel-xml-XXXXXX") {
    FILE* const file = fdopen(mkstemp(&path_[0]), "wb");
    EXPECT_EQ(std::fwrite(contents.data(), 1, contents.size(), file), contents.size());
    std::fclose(file);
}

xml_file::~xml_file() {
    unlink(path_.c_str());
}

std::vector<std::string>& debug_output() {
    qInstallMessageHandler(keep_line);
    return g_lines;
}
