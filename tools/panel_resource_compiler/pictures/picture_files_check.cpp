#include "picture_files_check.h"

#include "picture_checks.h"
#include "svg_faults.h"
#include "tsv_table.h"

#include <QCryptographicHash>
#include <QDir>
#include <QFile>
#include <QImageReader>
#include <QPainter>
#include <QRegularExpression>
#include <QSvgRenderer>

#include <algorithm>
#include <array>
#include <cmath>
#include <map>

namespace velarion {

namespace {

const std::array<std::string, 5> STATES = {"_on", "_off", "_pressed", "_disable", "_selected"};
const std::set<std::string> FILES_OF_THE_BUILD = {"ERROR_IMAGE.png", "ERROR_MOVIE.gif", "written_files.txt"};
/** How many siblings, and which share of them, must have a variant before its lack counts as forgotten. */
constexpr std::size_t FEWEST_SIBLINGS = 4;
constexpr double SHARE_OF_SIBLINGS = 0.75;
/** The same for a picture without any variant. */
constexpr double SHARE_OF_PLAIN_SIBLINGS = 0.9;
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

/** The first words of a name: pictures that begin alike are siblings. */
std::string family_of(const std::string& base) {
    const std::size_t first = base.find('_');
    const std::size_t second = first == std::string::npos ? first : base.find('_', first + 1);
    return base.substr(0, second);
}

class picture_checker {
public:
    picture_checker(const std::string& folder, std::string& subject, diagnostics& report)
        : folder_(folder)
        , subject_(subject)
        , report_(report)
        , names_(picture_file_names(folder))
        , files_(names_.begin(), names_.end()) {
        for (const std::string& name : names_) {
            const picture_file_name parts(name);
            variants_[parts.base + parts.extension].insert(parts.twin + '\t' + parts.state);
        }
    }

    void check_rows(const std::string& path, const std::vector<catalogue_image>& images,
                    const std::map<std::int32_t, source_place>& places) {
        std::map<std::string, std::string> by_lower_case;
        for (const std::string& name : names_) {
            by_lower_case.emplace(QString::fromStdString(name).toLower().toStdString(), name);
        }
        for (const catalogue_image& image : images) {
            if (is_blank_file_name(image.file)) {
                continue;
            }
            rows_.insert(image.file);
            if (files_.count(image.file) != 0 || files_.count("d_" + image.file) != 0) {
                continue;
            }
            const auto place = places.find(image.id);
            const auto other = by_lower_case.find(QString::fromStdString(image.file).toLower().toStdString());
            subject_ = image.file;
            report_.error(
                CHECK_NO_FILE, place != places.end() ? place->second : source_place{path, 0},
                "image " + std::to_string(image.id) + " " + image.name + ": \"" + image.file +
                    "\" is not in " + folder_ +
                    (other == by_lower_case.end() ? "" : "; \"" + other->second + "\" is, in other letters"));
        }
    }

    void check_unlisted() {
        for (const std::string& name : names_) {
            const picture_file_name parts(name);
            const bool is_listed = rows_.count(name) != 0 || rows_.count(parts.base + parts.extension) != 0 ||
                                   rows_.count(parts.base + parts.state + parts.extension) != 0 ||
                                   rows_.count(parts.twin + parts.base + parts.extension) != 0;
            if (!is_listed && FILES_OF_THE_BUILD.count(name) == 0) {
                warn(CHECK_NO_ROW, name,
                     "no row of the image list names it, nor the picture whose state or twin it is");
            }
        }
    }

    /** A state or twin is missing when most pictures that begin alike have it, and this one other variants.
     */
    void check_variants() {
        std::map<std::string, std::vector<std::string>> families;
        for (const auto& [name, variants] : variants_) {
            families[family_of(name) + picture_file_name(name).extension].push_back(name);
        }
        for (const auto& [family, members] : families) {
            for (const std::string& state : STATES) {
                check_family(members, "\t", '\t' + state, CHECK_NO_STATE);
                check_family(members, "d_\t", "d_\t" + state, CHECK_NO_TWIN);
            }
            check_family(members, "\t", "d_\t", CHECK_NO_TWIN);
        }
        for (const auto& [name, variants] : variants_) {
            check_twin_states(name, variants);
        }
    }

    void check_pictures() {
        std::map<QByteArray, std::vector<std::string>> same;
        for (const std::string& name : names_) {
            if (name != "written_files.txt") {
                check_picture(name, same);
            }
        }
        for (const auto& [content, names] : same) {
            report_same(names);
        }
        check_sizes();
    }

private:
    source_place place_of(const std::string& name, std::size_t line = 0, std::size_t column = 0) const {
        return {folder_ + '/' + name, line, column};
    }

    void warn(const char* check, const std::string& name, const std::string& text) {
        subject_ = name;
        report_.warning(check, place_of(name), text);
    }

    bool has(const std::string& name, const std::string& variant) const {
        return variants_.at(name).count(variant) != 0;
    }

    static std::string file_of(const std::string& name, const std::string& variant) {
        const picture_file_name parts(name);
        const std::size_t tab = variant.find('\t');
        return variant.substr(0, tab) + parts.base + variant.substr(tab + 1) + parts.extension;
    }

    /** Looks for a variant that most pictures of a kind have beside another. */
    void check_family(const std::vector<std::string>& members, const std::string& given,
                      const std::string& variant, const char* check) {
        std::size_t all = 0;
        std::vector<std::string> lacking;
        for (const std::string& name : members) {
            all += has(name, given) ? 1U : 0U;
            if (has(name, given) && !has(name, variant)) {
                lacking.push_back(name);
            }
        }
        const std::size_t having = all - lacking.size();
        for (const std::string& name : lacking) {
            const double least = variants_.at(name).size() > 1 ? SHARE_OF_SIBLINGS : SHARE_OF_PLAIN_SIBLINGS;
            if (having >= FEWEST_SIBLINGS &&
                static_cast<double>(having) >= least * static_cast<double>(all)) {
                warn(check, file_of(name, given),
                     "has no \"" + file_of(name, variant) + "\"; " + std::to_string(having) + " of " +
                         std::to_string(all) + " pictures that begin alike have theirs");
            }
        }
    }

    void check_twin_states(const std::string& name, const std::set<std::string>& variants) {
        for (const std::string& variant : variants) {
            const std::string plain = variant.substr(variant.find('\t'));
            if (variants.count(plain) == 0) {
                warn(CHECK_NO_STATE, file_of(name, variant),
                     "is the darker twin of \"" + file_of(name, plain) + "\", which is not there");
            }
        }
    }

    void check_picture(const std::string& name, std::map<QByteArray, std::vector<std::string>>& same) {
        const QString path = QString::fromStdString(folder_ + '/' + name);
        const bool is_document = picture_file_name(name).extension == ".svg";
        const QByteArray bytes = bytes_of(path);
        same[content_of(bytes, is_document)].push_back(name);
        subject_ = name;
        if (is_document) {
            check_document(name, bytes);
        } else {
            check_bitmap(name, path);
        }
    }

    void check_document(const std::string& name, const QByteArray& bytes) {
        if (bytes.size() > MOST_DOCUMENT_BYTES) {
            report_.error(CHECK_SVG_LOAD, place_of(name),
                          "is larger than 16 MiB, which the panel does not read");
            return;
        }
        bool is_drawn = true;
        if (bytes.left(2) != QByteArray("\x1f\x8b", 2)) {
            for (const svg_fault& fault : find_svg_faults(bytes)) {
                const source_place place = place_of(name, fault.line, fault.column);
                is_drawn = is_drawn && !fault.is_fatal;
                fault.is_fatal ? report_.error(fault.check, place, fault.text)
                               : report_.warning(fault.check, place, fault.text);
            }
        }
        const QSvgRenderer renderer(bytes);
        if (is_drawn && !renderer.isValid()) {
            report_.error(CHECK_SVG_LOAD, place_of(name), "the toolkit does not load it");
        }
        sizes_[name] = renderer.viewBoxF().size();
    }

    void check_bitmap(const std::string& name, const QString& path) {
        QImageReader reader(path);
        const QSize size = reader.size();
        const QString format = QString::fromLatin1(reader.format());
        sizes_[name] = size;
        if (static_cast<qint64>(size.width()) * size.height() * 32 >= MOST_BITMAP_BITS) {
            report_.error(CHECK_BITMAP, place_of(name), "is larger than the panel draws");
        } else if (reader.read().isNull()) {
            report_.error(CHECK_BITMAP, place_of(name),
                          "cannot be read: " + reader.errorString().toStdString());
        } else if (format != path.section(QLatin1Char('.'), -1).toLower()) {
            report_.warning(CHECK_BITMAP, place_of(name), "is of the format " + format.toStdString());
        }
    }

    /** What is off and what cannot be chosen may look alike. */
    static bool are_both_dim(const std::string& one, const std::string& other) {
        const auto is_dim = [](const std::string& state) { return state == "_off" || state == "_disable"; };
        return is_dim(one) && is_dim(other);
    }

    void report_same(const std::vector<std::string>& names) {
        for (std::size_t i = 1; i < names.size(); ++i) {
            const picture_file_name first(names[0]);
            const picture_file_name other(names[i]);
            subject_ = names[i];
            if (first.base == other.base && first.extension == other.extension) {
                if (are_both_dim(first.state, other.state)) {
                    continue;
                }
                report_.warning(CHECK_SAME_STATE, place_of(names[i]), "looks like \"" + names[0] + "\"");
            } else {
                report_.remark(CHECK_SAME_PICTURE, place_of(names[i]),
                               "is the same as \"" + names[0] + "\"; one row may name the other's file");
            }
        }
    }

    void check_sizes() {
        for (const auto& [name, variants] : variants_) {
            const auto plain = sizes_.find(name);
            if (plain == sizes_.end()) {
                continue;
            }
            for (const std::string& variant : variants) {
                const std::string file = file_of(name, variant);
                const auto size = sizes_.find(file);
                if (size != sizes_.end() &&
                    (std::abs(size->second.width() - plain->second.width()) > 0.5 ||
                     std::abs(size->second.height() - plain->second.height()) > 0.5)) {
                    warn(CHECK_VARIANT_SIZE, file,
                         "is " + text_of(size->second) + ", \"" + name + "\" is " + text_of(plain->second));
                }
            }
        }
    }

    static std::string text_of(const QSizeF& size) {
        return QStringLiteral("%1 x %2").arg(size.width()).arg(size.height()).toStdString();
    }

    std::string folder_;
    std::string& subject_;
    diagnostics& report_;
    std::vector<std::string> names_;
    std::set<std::string> files_;
    std::set<std::string> rows_;
    std::map<std::string, std::set<std::string>>
        variants_; ///< "d_" or nothing, tab, state; by base and extension
    std::map<std::string, QSizeF> sizes_;
};

/** Where each row stands, and where its file does in it. */
std::map<std::int32_t, source_place> places_of_rows(const std::string& path) {
    std::map<std::int32_t, source_place> places;
    QFile file(QString::fromStdString(path));
    if (!file.open(QIODevice::ReadOnly)) {
        return places;
    }
    for (std::size_t line = 1; !file.atEnd(); ++line) {
        const QByteArray text = file.readLine();
        bool is_number = false;
        const int id = text.left(text.indexOf('\t')).toInt(&is_number);
        if (is_number) {
            places.emplace(id,
                           source_place{path, line, static_cast<std::size_t>(text.lastIndexOf('\t')) + 2});
        }
    }
    return places;
}

} // namespace

picture_file_name::picture_file_name(const std::string& file) {
    const std::size_t dot = std::min(file.rfind('.'), file.size());
    twin = file.compare(0, 2, "d_") == 0 ? "d_" : "";
    base = file.substr(twin.size(), dot - std::min(dot, twin.size()));
    extension = file.substr(dot);
    for (const std::string& known : STATES) {
        if (base.size() > known.size() &&
            base.compare(base.size() - known.size(), known.size(), known) == 0) {
            state = known;
            base.erase(base.size() - known.size());
            return;
        }
    }
}

std::vector<std::string> picture_file_names(const std::string& folder) {
    std::vector<std::string> names;
    for (const QString& name : QDir(QString::fromStdString(folder)).entryList(QDir::Files, QDir::Name)) {
        names.push_back(name.toStdString());
    }
    std::sort(names.begin(), names.end());
    return names;
}

void check_picture_files(const std::string& catalogue, const std::vector<catalogue_image>& images,
                         const std::string& folder, std::string& subject, diagnostics& report) {
    picture_checker checker(folder, subject, report);
    const std::string path = catalogue + "/images.tsv";
    checker.check_rows(path, images, places_of_rows(path));
    checker.check_unlisted();
    checker.check_variants();
    checker.check_pictures();
}

QImage draw_picture_file(const QString& path, int longest_side, QSize& size) {
    if (!path.endsWith(QLatin1String(".svg"), Qt::CaseInsensitive)) {
        const QImage image(path);
        size = image.size();
        return image.isNull()
                   ? image
                   : image.scaled(longest_side, longest_side, Qt::KeepAspectRatio, Qt::SmoothTransformation);
    }
    QSvgRenderer renderer(path);
    size = renderer.viewBox().size();
    if (!renderer.isValid() || size.isEmpty()) {
        return {};
    }
    QImage image(size.scaled(longest_side, longest_side, Qt::KeepAspectRatio).expandedTo(QSize(1, 1)),
                 QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    renderer.render(&painter);
    return image;
}

} // namespace velarion
