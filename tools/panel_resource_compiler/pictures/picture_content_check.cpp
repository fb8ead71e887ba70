#include "checks.h"
#include "picture_checks.h"
#include "svg_faults.h"

#include <QCryptographicHash>
#include <QFile>
#include <QImageReader>
#include <QRegularExpression>
#include <QSvgRenderer>

#include <cmath>

namespace velarion {

namespace {

constexpr qint64 MOST_DOCUMENT_BYTES = 16 << 20;
constexpr qint64 MOST_BITMAP_BITS = Q_INT64_C(1) << 31;

QByteArray bytes_of(const QString& path) {
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

/** What a picture shows: a document without its title, which programs and people may word as they like. */
QByteArray content_of(QByteArray bytes, bool is_document) {
    static const QRegularExpression title(
        QStringLiteral("<title>[^<]*</title>|<desc>[^<]*</desc>|<!--.*?-->"),
        QRegularExpression::DotMatchesEverythingOption);
    if (is_document) {
        bytes = QString::fromUtf8(bytes).remove(title).simplified().toUtf8();
    }
    return QCryptographicHash::hash(bytes, QCryptographicHash::Sha1);
}

std::string text_of(const QSizeF& size) {
    return QStringLiteral("%1 x %2").arg(size.width()).arg(size.height()).toStdString();
}

/** What is off and what cannot be chosen may look alike. */
bool are_both_dim(const std::string& one, const std::string& other) {
    const auto is_dim = [](const std::string& state) { return state == "_off" || state == "_disable"; };
    return is_dim(one) && is_dim(other);
}

class content_check {
public:
    content_check(const picture_folder& folder, diagnostics& report)
        : folder_(folder)
        , report_(report) {}

    void check() {
        for (const std::string& name : folder_.names) {
            check_picture(name);
        }
        for (const auto& [content, names] : same_) {
            report_same(names);
        }
        for (const auto& [name, variants] : folder_.variants) {
            check_sizes(name, variants);
        }
    }

private:
    void error(const char* check, const std::string& name, const std::string& text) {
        report_.add(folder_.found(severity::ERROR, check, name, text));
    }

    void warn(const char* check, const std::string& name, const std::string& text) {
        report_.add(folder_.found(severity::WARNING, check, name, text));
    }

    void check_picture(const std::string& name) {
        const QString path = QString::fromStdString(folder_.path + '/' + name);
        const bool is_document = picture_file_name(name).extension == ".svg";
        const QByteArray bytes = bytes_of(path);
        same_[content_of(bytes, is_document)].push_back(name);
        if (is_document) {
            check_document(name, bytes);
        } else {
            check_bitmap(name, path);
        }
    }

    void check_document(const std::string& name, const QByteArray& bytes) {
        if (bytes.size() > MOST_DOCUMENT_BYTES) {
            error(CHECK_SVG_LOAD, name, "is larger than 16 MiB, which the panel does not read");
            return;
        }
        bool is_drawn = true;
        if (bytes.left(2) != QByteArray("\x1f\x8b", 2)) {
            for (const svg_fault& fault : find_svg_faults(bytes)) {
                is_drawn = is_drawn && !fault.is_fatal;
                report_.add(folder_.found(fault.is_fatal ? severity::ERROR : severity::WARNING, fault.check,
                                          name, fault.text, fault.line, fault.column));
            }
        }
        const QSvgRenderer renderer(bytes);
        if (is_drawn && !renderer.isValid()) {
            error(CHECK_SVG_LOAD, name, "the toolkit does not load it");
        }
        sizes_[name] = renderer.viewBoxF().size();
    }

    void check_bitmap(const std::string& name, const QString& path) {
        QImageReader reader(path);
        const QSize size = reader.size();
        const QString format = QString::fromLatin1(reader.format());
        sizes_[name] = size;
        if (static_cast<qint64>(size.width()) * size.height() * 32 >= MOST_BITMAP_BITS) {
            error(CHECK_BITMAP, name, "is larger than the panel draws");
        } else if (reader.read().isNull()) {
            error(CHECK_BITMAP, name, "cannot be read: " + reader.errorString().toStdString());
        } else if (format != path.section(QLatin1Char('.'), -1).toLower()) {
            warn(CHECK_BITMAP, name, "is of the format " + format.toStdString());
        }
    }

    void report_same(const std::vector<std::string>& names) {
        const picture_file_name first(names[0]);
        for (std::size_t i = 1; i < names.size(); ++i) {
            const picture_file_name other(names[i]);
            if (first.base != other.base || first.extension != other.extension) {
                report_.add(
                    folder_.found(severity::REMARK, CHECK_SAME_PICTURE, names[i],
                                  "is the same as \"" + names[0] + "\"; one row may name the other's file"));
            } else if (!are_both_dim(first.state, other.state)) {
                warn(CHECK_SAME_STATE, names[i], "looks like \"" + names[0] + "\"");
            }
        }
    }

    void check_sizes(const std::string& name, const std::set<std::string>& variants) {
        const auto plain = sizes_.find(name);
        if (plain == sizes_.end()) {
            return;
        }
        for (const std::string& variant : variants) {
            const std::string file = picture_folder::file_of(name, variant);
            const auto size = sizes_.find(file);
            if (size != sizes_.end() && (std::abs(size->second.width() - plain->second.width()) > 0.5 ||
                                         std::abs(size->second.height() - plain->second.height()) > 0.5)) {
                warn(CHECK_VARIANT_SIZE, file,
                     "is " + text_of(size->second) + ", \"" + name + "\" is " + text_of(plain->second));
            }
        }
    }

    const picture_folder& folder_;
    diagnostics& report_;
    std::map<QByteArray, std::vector<std::string>> same_; ///< names by what they show
    std::map<std::string, QSizeF> sizes_;
};

} // namespace

void check_picture_contents(const picture_folder& folder, diagnostics& report) {
    content_check(folder, report).check();
}

} // namespace velarion
