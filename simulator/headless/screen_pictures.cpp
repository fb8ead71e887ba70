#include "screen_pictures.h"

#include "simulator_options.h"
#include "units.h"

#include <QBuffer>
#include <QDir>
#include <QFileInfo>
#include <QFont>
#include <QPainter>
#include <QSaveFile>

#include <cerrno>
#include <cstdio>
#include <memory>
#include <unistd.h>

namespace velarion {

namespace {

constexpr int SHEET_COLUMNS = 3;
constexpr int SHEET_CAPTION = 24; // px above each picture
constexpr int SHEET_GAP = 12;     // px
constexpr int CAPTION_SIZE = 15;  // px

/** The pictures of one view in all languages, side by side at their own size. */
class contact_sheet {
public:
    explicit contact_sheet(std::size_t count)
        : image_(sheet_size(static_cast<int>(count)), QImage::Format_RGB32) {
        image_.fill(QColor(0x0c, 0x10, 0x15));
    }

    void add(const QImage& picture, const QString& caption) {
        const QPoint corner(SHEET_GAP + count_ % SHEET_COLUMNS * (PANEL_SIZE.width() + SHEET_GAP),
                            SHEET_GAP +
                                count_ / SHEET_COLUMNS * (PANEL_SIZE.height() + SHEET_CAPTION + SHEET_GAP));
        QPainter painter(&image_);
        QFont font;
        font.setPixelSize(CAPTION_SIZE);
        painter.setFont(font);
        painter.setPen(Qt::white);
        painter.setLayoutDirection(Qt::LeftToRight);
        painter.drawText(QRect(corner, QSize(PANEL_SIZE.width(), SHEET_CAPTION)),
                         Qt::AlignLeft | Qt::AlignVCenter, caption);
        painter.drawImage(corner + QPoint(0, SHEET_CAPTION), picture);
        ++count_;
    }

    const QImage& image() const { return image_; }

private:
    static QSize sheet_size(int count) {
        const int columns = qMin(count, SHEET_COLUMNS);
        const int rows = (count + SHEET_COLUMNS - 1) / SHEET_COLUMNS;
        return {SHEET_GAP + columns * (PANEL_SIZE.width() + SHEET_GAP),
                SHEET_GAP + rows * (PANEL_SIZE.height() + SHEET_CAPTION + SHEET_GAP)};
    }

    QImage image_;
    int count_ = 0;
};

void show_progress(std::size_t done, std::size_t all, const char* what) {
    static const bool is_terminal = ::isatty(STDERR_FILENO) == 1;
    if (is_terminal) {
        std::fprintf(stderr, "\r%zu of %zu  %-24s%s", done, all, what, done == all ? "\n" : "");
    }
}

/** Puts a file in the place of the one that is there; a disk that is full leaves that. */
bool save_file(const QString& file, const QByteArray& bytes, QString& fault) {
    const QFileInfo place(file);
    const bool is_device = place.exists() && !place.isFile(); // written into, not replaced
    QFile device(file);
    QSaveFile replacement(file);
    QFileDevice& output = is_device ? static_cast<QFileDevice&>(device) : replacement;
    if (output.open(QIODevice::WriteOnly) && output.write(bytes) == bytes.size() &&
        (is_device ? device.flush() : replacement.commit())) {
        return true;
    }
    fault = QStringLiteral("%1 cannot be written: %2").arg(file, output.errorString());
    return false;
}

} // namespace

bool show_all(panel_stage& stage, const stage_plan& plan,
              const std::function<bool(const screen_view&, const language_choice&)>& show) {
    const std::size_t all = plan.views.size() * plan.languages.size();
    std::size_t done = 0;
    for (const screen_view& view : plan.views) {
        for (const language_choice& language : plan.languages) {
            stage.show(view, language);
            if (!show(view, language)) {
                return false;
            }
            show_progress(++done, all, view.name);
        }
    }
    return true;
}

int write_all_screens(panel_stage& stage, const stage_plan& plan, const QString& folder,
                      panel_report* report) {
    if (!make_folder(folder)) {
        return SIMULATOR_FAILED;
    }
    const QDir place(folder);
    std::unique_ptr<contact_sheet> sheet;
    std::size_t in_sheet = 0;
    const bool is_written =
        show_all(stage, plan, [&](const screen_view& view, const language_choice& language) {
            const QString name = QLatin1String(view.name);
            const QImage picture = stage.picture();
            if (report) {
                report->add(stage, view, language);
            }
            if (in_sheet == 0) {
                sheet = std::make_unique<contact_sheet>(plan.languages.size());
            }
            sheet->add(picture, QStringLiteral("%1, language %2").arg(name, language_word(language)));
            if (!write_picture(
                    picture,
                    place.filePath(QStringLiteral("%1-%2.png").arg(name, language_word(language))))) {
                return false;
            }
            in_sheet = (in_sheet + 1) % plan.languages.size();
            return in_sheet != 0 ||
                   write_picture(sheet->image(), place.filePath(QStringLiteral("sheet-%1.png").arg(name)));
        });
    return is_written ? SIMULATOR_GOOD : SIMULATOR_FAILED;
}

bool write_picture(const QImage& picture, const QString& file) {
    QString fault;
    if (save_picture(picture, file, fault)) {
        return true;
    }
    report_simulator_fault(fault);
    return false;
}

bool save_picture(const QImage& picture, const QString& file, QString& fault) {
    QBuffer buffer;
    const QByteArray kind = QFileInfo(file).suffix().toLatin1();
    if (!picture.save(&buffer, kind.isEmpty() ? "png" : kind.constData())) {
        fault = QStringLiteral("%1 cannot be written: \".%2\" is no kind of picture; .png is one")
                    .arg(file, QString::fromLatin1(kind));
        return false;
    }
    return save_file(file, buffer.data(), fault);
}

bool write_file(const QString& file, const QByteArray& bytes) {
    QString fault;
    if (save_file(file, bytes, fault)) {
        return true;
    }
    report_simulator_fault(fault);
    return false;
}

bool make_folder(const QString& folder) {
    errno = 0;
    if (QDir().mkpath(folder)) {
        return true;
    }
    const int reason = errno == 0 ? ENOTDIR : errno; // what is there already is left alone
    report_simulator_fault(
        QStringLiteral("the folder %1 cannot be made: %2").arg(folder, qt_error_string(reason)));
    return false;
}

} // namespace velarion
