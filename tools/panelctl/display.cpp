#include "display.h"

#include <algorithm>
#include <cstdio>
#include <cwchar>

namespace velarion {

namespace {

constexpr int COLUMN_GAP = 2;

int display_width(const QString& text) {
    int width = 0;
    for (const uint character : text.toUcs4()) {
        width += std::max(0, wcwidth(static_cast<wchar_t>(character)));
    }
    return width;
}

void print_bytes(const QByteArray& bytes) {
    std::fwrite(bytes.constData(), 1, static_cast<std::size_t>(bytes.size()), stdout);
}

} // namespace

QString as_one_line(const QString& text) {
    QString line;
    for (const QChar character : text) {
        if (character == QLatin1Char('\n')) {
            line += QLatin1String("\\n");
        } else if (character == QLatin1Char('\t')) {
            line += QLatin1String("\\t");
        } else if (character.category() != QChar::Other_Control) {
            line += character;
        }
    }
    return line;
}

void print_table(const std::vector<QStringList>& rows) {
    std::vector<int> widths;
    for (const QStringList& row : rows) {
        widths.resize(std::max(widths.size(), static_cast<std::size_t>(row.size())), 0);
        for (int i = 0; i < row.size(); ++i) {
            int& width = widths[static_cast<std::size_t>(i)];
            width = std::max(width, display_width(row.at(i)));
        }
    }
    for (const QStringList& row : rows) {
        QString line;
        for (int i = 0; i < row.size(); ++i) {
            line += row.at(i);
            if (i + 1 < row.size()) {
                const int gap = widths[static_cast<std::size_t>(i)] - display_width(row.at(i)) + COLUMN_GAP;
                line += QString(gap, QLatin1Char(' '));
            }
        }
        print_line(line);
    }
}

void print_line(const QString& line) {
    print_bytes(line.toUtf8() + '\n');
}

void print_json(const QJsonDocument& document) {
    print_bytes(document.toJson(QJsonDocument::Indented));
}

} // namespace velarion
