#include "rsvg_comparison.h"

#include "checks.h"
#include "sheet_page.h"

#include <QFile>
#include <QFileInfo>
#include <QProcess>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <memory>

namespace velarion {

namespace {

constexpr int MARGIN = sheet_page::MARGIN;
constexpr int LABEL_HEIGHT = sheet_page::LABEL_HEIGHT;
constexpr std::size_t WORST_SHOWN = 24;
constexpr int COMPARED_SIDE = 128;
constexpr int VISIBLE_DIFFERENCE = 64;
constexpr double MOST_DIFFERENCE = 1.0; // percent
constexpr std::size_t PROCESSES = 2;
constexpr int RSVG_TIME = 20000; // milliseconds

/** What one picture looks like here and there. */
struct comparison {
    std::string name;
    double percent;
};

QStringList rsvg_arguments(const QString& path, const QSize& size) {
    return {QStringLiteral("--width"), QString::number(size.width()), QStringLiteral("--height"),
            QString::number(size.height()), QFileInfo(path).absoluteFilePath()};
}

/** A line that lies half a pixel elsewhere is no difference: the nearest pixel around counts. */
int nearest_difference(const QImage& image, int x, int y, QRgb wanted) {
    int least = 255;
    for (int py = std::max(0, y - 1); py <= std::min(image.height() - 1, y + 1); ++py) {
        for (int px = std::max(0, x - 1); px <= std::min(image.width() - 1, x + 1); ++px) {
            const QRgb found = image.pixel(px, py);
            const int worst =
                std::max({std::abs(qRed(found) - qRed(wanted)), std::abs(qGreen(found) - qGreen(wanted)),
                          std::abs(qBlue(found) - qBlue(wanted))});
            least = std::min(least, worst);
        }
    }
    return least;
}

QImage on_grey(const QImage& image, const QSize& size) {
    QImage result(size, QImage::Format_RGB32);
    result.fill(QColor(0x80, 0x80, 0x80));
    QPainter(&result).drawImage(0, 0, image);
    return result;
}

QImage difference_of(const QImage& ours, const QImage& theirs, double& percent) {
    QImage difference(ours.size(), QImage::Format_RGB32);
    difference.fill(DARK_GROUND);
    int different = 0;
    for (int y = 0; y < ours.height(); ++y) {
        for (int x = 0; x < ours.width(); ++x) {
            if (std::max(nearest_difference(theirs, x, y, ours.pixel(x, y)),
                         nearest_difference(ours, x, y, theirs.pixel(x, y))) > VISIBLE_DIFFERENCE) {
                difference.setPixelColor(x, y, FAULT_COLOR);
                ++different;
            }
        }
    }
    percent = 100.0 * different / (ours.width() * ours.height());
    return difference;
}

/** librsvg knows no strokes that keep their width: only at the natural size do these pictures compare. */
bool keeps_stroke_width(const QString& path) {
    QFile file(path);
    return file.open(QIODevice::ReadOnly) && file.readAll().contains("non-scaling-stroke");
}

/** Pictures that are being drawn by rsvg-convert. */
class rsvg_run {
public:
    rsvg_run(const std::string& folder, const std::string& name)
        : path_(QString::fromStdString(folder + '/' + name)) {
        QSize natural;
        ours_ = draw_picture_file(path_, COMPARED_SIDE, natural);
        if (keeps_stroke_width(path_)) {
            ours_ = draw_picture_file(path_, std::max(natural.width(), natural.height()), natural);
        }
        if (!ours_.isNull()) {
            process_.start(QStringLiteral("rsvg-convert"), rsvg_arguments(path_, ours_.size()));
        }
    }

    /** @return false when rsvg-convert is not there; images stay null when one of both draws nothing */
    bool finish(QImage& ours, QImage& theirs) {
        if (ours_.isNull()) {
            return true;
        }
        if (!process_.waitForStarted() && process_.error() == QProcess::FailedToStart) {
            return false;
        }
        if (!process_.waitForFinished(RSVG_TIME)) {
            process_.kill();
        }
        const QImage drawn = QImage::fromData(process_.readAllStandardOutput(), "PNG");
        ours = on_grey(ours_, ours_.size());
        theirs = drawn.isNull() ? QImage() : on_grey(drawn, ours_.size());
        return true;
    }

private:
    QString path_;
    QImage ours_;
    QProcess process_;
};

bool compare_all(const std::string& folder, const std::vector<std::string>& names,
                 std::vector<comparison>& compared, std::string& fault) {
    std::vector<std::unique_ptr<rsvg_run>> runs;
    for (std::size_t i = 0; i < names.size(); ++i) {
        for (std::size_t k = runs.size(); k < std::min(names.size(), i + PROCESSES); ++k) {
            runs.push_back(std::make_unique<rsvg_run>(folder, names[k]));
        }
        QImage ours;
        QImage theirs;
        if (!runs[i]->finish(ours, theirs)) {
            fault = "rsvg-convert cannot be started; install the package librsvg2-bin";
            return false;
        }
        runs[i].reset();
        double percent = ours.isNull() ? 0 : 100;
        if (!ours.isNull() && !theirs.isNull()) {
            difference_of(ours, theirs, percent);
        }
        compared.push_back({names[i], percent});
        if ((i + 1) % 200 == 0 || i + 1 == names.size()) {
            std::fprintf(stderr, "compared %zu of %zu pictures\n", i + 1, names.size());
        }
    }
    return true;
}

bool write_worst(const std::string& folder, const std::vector<comparison>& worst, const QString& sheet,
                 std::string& fault) {
    const int cell = COMPARED_SIDE + MARGIN;
    const int line = COMPARED_SIDE + LABEL_HEIGHT;
    const int count = static_cast<int>(std::min(worst.size(), WORST_SHOWN));
    sheet_page page(6 * cell + 3 * MARGIN, (count + 1) / 2 * line + 2 * MARGIN);
    for (int i = 0; i < count; ++i) {
        const comparison& entry = worst[static_cast<std::size_t>(i)];
        QImage ours;
        QImage theirs;
        rsvg_run(folder, entry.name).finish(ours, theirs);
        double percent = 0;
        const QImage difference =
            ours.isNull() || theirs.isNull() ? QImage() : difference_of(ours, theirs, percent);
        QPoint corner(MARGIN + i % 2 * (3 * cell + MARGIN), MARGIN + i / 2 * line);
        page.draw_label(QRect(corner + QPoint(0, COMPARED_SIDE), QSize(3 * cell, LABEL_HEIGHT)),
                        QStringLiteral("%1  %2 %: ours, rsvg, difference")
                            .arg(QString::fromStdString(entry.name))
                            .arg(entry.percent, 0, 'f', 1));
        for (const QImage& image : {ours, theirs, difference}) {
            page.draw_centred(QRect(corner, QSize(COMPARED_SIDE, COMPARED_SIDE)), image);
            corner.rx() += cell;
        }
    }
    return page.save(sheet, fault);
}

} // namespace

bool compare_with_rsvg(const picture_folder& folder, const std::vector<std::string>& names,
                       const QString& sheet, diagnostics& report, std::string& fault) {
    std::vector<std::string> documents;
    std::copy_if(names.begin(), names.end(), std::back_inserter(documents),
                 [](const std::string& name) { return picture_file_name(name).extension == ".svg"; });
    std::vector<comparison> compared;
    if (!compare_all(folder.path, documents, compared, fault)) {
        return false;
    }
    std::stable_sort(compared.begin(), compared.end(),
                     [](const comparison& a, const comparison& b) { return a.percent > b.percent; });
    for (const comparison& entry : compared) {
        if (entry.percent > MOST_DIFFERENCE) {
            report.add(folder.found(severity::WARNING, CHECK_RSVG, entry.name,
                                    QStringLiteral("%1 % of its pixels differ from librsvg's")
                                        .arg(entry.percent, 0, 'f', 1)
                                        .toStdString()));
        }
    }
    return sheet.isEmpty() || write_worst(folder.path, compared, sheet, fault);
}

} // namespace velarion
