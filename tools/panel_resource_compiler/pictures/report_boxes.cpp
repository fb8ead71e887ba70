#include "report_boxes.h"

#include <QFile>
#include <QFileInfo>
#include <QFontMetrics>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include <algorithm>
#include <iterator>
#include <set>
#include <tuple>

namespace velarion {

namespace {

const QString FORMAT = QStringLiteral("panel_report/1");
constexpr int ENGLISH = 1;
/** Without a break a text is measured on a line that has no end. */
constexpr int ENDLESS = 100000; // px

auto key_of(const text_box& box) {
    return std::make_tuple(box.language, box.id, box.arguments.join(QChar(0)), box.size.width(),
                           box.size.height(), box.font_sizes, box.weight, box.wraps);
}

bool read_text_box(const QJsonObject& text, const QJsonObject& screen, text_box& box) {
    const int option = screen.value(QStringLiteral("option_language")).toInt();
    const QJsonArray place = text.value(QStringLiteral("box")).toArray();
    const QJsonArray room = text.value(QStringLiteral("room")).toArray();
    const QJsonObject font = text.value(QStringLiteral("font")).toObject();
    box.id = text.value(QStringLiteral("id")).toVariant().toInt();
    box.language = option != 0 ? option : screen.value(QStringLiteral("language")).toInt();
    box.screen = screen.value(QStringLiteral("screen")).toString();
    box.size = room.size() == 2 ? QSize(room.at(0).toInt(), room.at(1).toInt())
                                : QSize(place.at(2).toInt(), place.at(3).toInt());
    box.weight = font.value(QStringLiteral("weight")).toInt(QFont::Normal);
    box.wraps = text.value(QStringLiteral("wrap")).toBool();
    for (const QJsonValue& argument : text.value(QStringLiteral("arguments")).toArray()) {
        box.arguments.append(argument.toString());
    }
    for (const QJsonValue& size : text.value(QStringLiteral("font_sizes")).toArray()) {
        box.font_sizes.push_back(size.toInt());
    }
    if (box.font_sizes.empty()) {
        box.font_sizes.push_back(font.value(QStringLiteral("px")).toInt());
    }
    return box.id > 0 && box.font_sizes.back() > 0 && !box.size.isEmpty();
}

QSize needed_size(const QString& text, const QFont& font, const text_box& box) {
    const int width = box.wraps ? box.size.width() : ENDLESS;
    const int flags = box.wraps ? static_cast<int>(Qt::TextWordWrap) : 0;
    return QFontMetrics(font).boundingRect(QRect(0, 0, width, ENDLESS), flags, text).size();
}

} // namespace

QString text_box::filled(QString text) const {
    for (int i = 0; i < arguments.size(); ++i) {
        text.replace(QStringLiteral("%%1").arg(i + 1), arguments[i]);
    }
    return text;
}

bool read_report_boxes(const std::string& path, std::vector<text_box>& boxes, std::string& fault) {
    QFile file(QString::fromStdString(path));
    if (!QFileInfo(file).isFile() || !file.open(QIODevice::ReadOnly)) {
        fault = path + ": cannot be read";
        return false;
    }
    QJsonParseError error;
    const QJsonObject root = QJsonDocument::fromJson(file.readAll(), &error).object();
    if (root.value(QStringLiteral("format")).toString() != FORMAT) {
        fault = path + ": is no report of the simulator (" +
                (error.error == QJsonParseError::NoError ? "its format is not panel_report/1"
                                                         : error.errorString().toStdString()) +
                ")";
        return false;
    }
    std::set<decltype(key_of({}))> known;
    for (const QJsonValue& value : root.value(QStringLiteral("screens")).toArray()) {
        const QJsonObject screen = value.toObject();
        for (const QJsonValue& text : screen.value(QStringLiteral("texts")).toArray()) {
            text_box box;
            if (read_text_box(text.toObject(), screen, box) && known.insert(key_of(box)).second) {
                boxes.push_back(box);
            }
        }
    }
    if (boxes.empty()) {
        fault = path + ": shows no text on any screen";
    }
    return !boxes.empty();
}

std::vector<text_box> boxes_for(int language, const std::vector<text_box>& boxes) {
    int shown = boxes.empty() ? 0 : boxes.front().language;
    for (const text_box& box : boxes) {
        if (box.language == language || (box.language == ENGLISH && shown != language)) {
            shown = box.language;
        }
    }
    std::vector<text_box> chosen;
    std::copy_if(boxes.begin(), boxes.end(), std::back_inserter(chosen),
                 [shown](const text_box& box) { return box.language == shown; });
    return chosen;
}

bool fits_box(const QString& text, const QString& family, const text_box& box, misfit& result) {
    result.text = box.filled(text);
    result.box = box;
    result.font = QFont(family, -1, box.weight);
    for (const int size : box.font_sizes) {
        result.font.setPixelSize(size);
        result.needed = needed_size(result.text, result.font, box);
        if (result.needed.width() <= box.size.width() && result.needed.height() <= box.size.height()) {
            return true;
        }
    }
    return false;
}

} // namespace velarion
