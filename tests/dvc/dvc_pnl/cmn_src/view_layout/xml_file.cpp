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
QtMessageHandler g_former_handler = nullptr;

void keep_line(QtMsgType, const QMessageLogContext&, const QString& text) {
    g_lines.push_back(text.toUtf8().constData());
}
#else
QtMsgHandler g_former_handler = nullptr;

void keep_line(QtMsgType, const char* text) {
    g_lines.push_back(text);
}
#define qInstallMessageHandler qInstallMsgHandler
#endif

} // namespace

xml_file::xml_file(const std::string& contents)
    : path_("/tmp/panel-xml-XXXXXX") {
    const int descriptor = mkstemp(&path_[0]);
    FILE* const file = fdopen(descriptor, "wb");
    EXPECT_EQ(std::fwrite(contents.data(), 1, contents.size(), file), contents.size());
    std::fclose(file);
}

xml_file::~xml_file() {
    unlink(path_.c_str());
}

void xml_file::shrink_to(long size) const {
    EXPECT_EQ(truncate(path_.c_str(), size), 0);
}

debug_output::debug_output() {
    g_lines.clear();
    g_former_handler = qInstallMessageHandler(keep_line);
}

debug_output::~debug_output() {
    qInstallMessageHandler(g_former_handler);
}

const std::vector<std::string>& debug_output::lines() const {
    return g_lines;
}
