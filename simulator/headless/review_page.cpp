#include "review_page.h"

#include "language_names.h"
#include "simulator_options.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QJsonDocument>
#include <QSet>

/** Outside of every namespace, as its macro asks; a static library's resources are not there by themselves.
 */
static void load_page_resources() {
    Q_INIT_RESOURCE(review);
}

namespace velarion {

namespace {

constexpr const char* PAGE_FILES[] = {"index.html", "review.css", "review.js"};
constexpr const char* INNER_FOLDERS[] = {"screens", "before", "difference"};
constexpr char DATA_FILE[] = "data.js";
constexpr char DATA_START[] = "const REVIEW = ";
constexpr QRgb CHANGED_COLOR = qRgb(0xff, 0x2f, 0xd0);

/** What two pictures of a view have not in common. */
struct picture_change {
    int pixels = 0;
    QImage marked; ///< the later picture, dimmed, its differing pixels in one bright colour
};

picture_change compare_pictures(const QImage& earlier, const QImage& later) {
    picture_change change;
    change.marked = later.convertToFormat(QImage::Format_RGB32);
    const QImage before = earlier.convertToFormat(QImage::Format_RGB32);
    for (int y = 0; y < change.marked.height(); ++y) {
        for (int x = 0; x < change.marked.width(); ++x) {
            const QRgb now = change.marked.pixel(x, y);
            const bool is_same = before.valid(x, y) && before.pixel(x, y) == now;
            const int dimmed = 40 + qGray(now) / 4;
            change.pixels += is_same ? 0 : 1;
            change.marked.setPixel(x, y, is_same ? qRgb(dimmed, dimmed, dimmed) : CHANGED_COLOR);
        }
    }
    return change;
}

bool write_page_files(const QDir& folder) {
    load_page_resources();
    for (const char* name : PAGE_FILES) {
        QFile source(QStringLiteral(":/review/%1").arg(QLatin1String(name)));
        if (!source.open(QIODevice::ReadOnly) ||
            !write_file(folder.filePath(QLatin1String(name)), source.readAll())) {
            return false;
        }
    }
    return true;
}

/** Keeps what an earlier review has of the same views, and what differs from it. */
class review_comparison {
public:
    review_comparison(const QDir& folder, const QString& earlier)
        : folder_(folder)
        , earlier_(earlier) {}

    /** @return whether all could be written; a fault is reported */
    bool add(const QString& name, const QImage& picture) {
        const QString file = name + QStringLiteral(".png");
        const QString place = QDir(earlier_).filePath(QStringLiteral("screens/") + file);
        const QImage before(place);
        QJsonObject entry{
            {QStringLiteral("pixels"), QJsonValue::Null}}; // a view that the earlier review has not
        if (before.isNull() && QFileInfo::exists(place)) {
            report_simulator_fault(
                QStringLiteral("--compare-with: %1 cannot be read as a picture").arg(place));
            return false;
        }
        if (!before.isNull()) {
            const picture_change change = compare_pictures(before, picture);
            entry[QStringLiteral("pixels")] = change.pixels;
            if (change.pixels != 0 &&
                !(write_picture(before, folder_.filePath(QStringLiteral("before/") + file)) &&
                  write_picture(change.marked, folder_.filePath(QStringLiteral("difference/") + file)))) {
                return false;
            }
        }
        changes_[name] = entry;
        return true;
    }

    const QJsonObject& changes() const { return changes_; }

private:
    QDir folder_;
    QString earlier_;
    QJsonObject changes_;
};

QJsonObject language_names(const stage_plan& plan) {
    QJsonObject names;
    for (const language_choice& language : plan.languages) {
        const QString word = language_word(language);
        const language_name* name = find_language(word.toInt());
        names[word] = name ? QStringLiteral("%1 (%2)").arg(QLatin1String(name->english), word) : word;
    }
    return names;
}

/** Removes pictures of an earlier run into the same folder; of a folder that is no review nothing. */
void remove_stale_pictures(const QDir& folder, const QSet<QString>& shown, const QJsonObject& changes) {
    QFile data(folder.filePath(QLatin1String(DATA_FILE)));
    if (!data.open(QIODevice::ReadOnly) || !data.readLine(sizeof DATA_START).startsWith(DATA_START)) {
        return;
    }
    for (const char* inner : INNER_FOLDERS) {
        QDir place(folder.filePath(QLatin1String(inner)));
        for (const QString& file : place.entryList({QStringLiteral("*.png")}, QDir::Files)) {
            const QString name = QFileInfo(file).completeBaseName();
            const bool has_changed = changes[name].toObject()[QStringLiteral("pixels")].toInt() != 0;
            if (!shown.contains(name) || (inner != INNER_FOLDERS[0] && !has_changed)) {
                place.remove(file);
            }
        }
    }
}

/** JSON would need a server to be read from: a page of the file system may only load scripts. */
QByteArray data_script(const QJsonObject& data) {
    return DATA_START + QJsonDocument(data).toJson(QJsonDocument::Compact) + ";\n";
}

} // namespace

int write_review(panel_stage& stage, const stage_plan& plan, const QString& folder, const QString& earlier,
                 panel_report& report) {
    const QDir place(folder);
    if (!earlier.isEmpty() && !QFileInfo::exists(QDir(earlier).filePath(QStringLiteral("screens")))) {
        report_simulator_fault(
            QStringLiteral("--compare-with: %1 is no folder that --review has written").arg(earlier));
        return SIMULATOR_FAILED;
    }
    for (const char* inner : INNER_FOLDERS) {
        if (!make_folder(place.filePath(QLatin1String(inner)))) {
            return SIMULATOR_FAILED;
        }
    }
    review_comparison comparison(place, earlier);
    QSet<QString> names;
    const bool is_shown =
        show_all(stage, plan, [&](const screen_view& view, const language_choice& language) {
            const QString name =
                QStringLiteral("%1-%2").arg(QLatin1String(view.name), language_word(language));
            const QImage picture = stage.panel_picture();
            names.insert(name);
            report.add(stage, view, language);
            return (earlier.isEmpty() || comparison.add(name, picture)) &&
                   write_picture(picture, place.filePath(QStringLiteral("screens/%1.png").arg(name)));
        });
    QJsonObject data{{QStringLiteral("report"), report.to_json()},
                     {QStringLiteral("languages"), language_names(plan)}};
    if (!earlier.isEmpty()) {
        data[QStringLiteral("changes")] = comparison.changes();
    }
    if (is_shown) {
        remove_stale_pictures(place, names, comparison.changes());
    }
    return is_shown && write_file(place.filePath(QLatin1String(DATA_FILE)), data_script(data)) &&
                   write_page_files(place)
               ? SIMULATOR_GOOD
               : SIMULATOR_FAILED;
}

} // namespace velarion
