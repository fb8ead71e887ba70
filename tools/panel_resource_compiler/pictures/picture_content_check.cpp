#include "checks.h"
#include "panel_picture.h"
#include "picture_checks.h"
#include "svg_faults.h"

#include <QCryptographicHash>
#include <QFile>
#include <QRegularExpression>
#include <QSvgRenderer>

#include <cmath>

namespace velarion {

namespace {

/** What a document shows: all but its title, which programs and people may word as they like. */
QByteArray content_of(const QByteArray& document) {
    static const QRegularExpression title(
        QStringLiteral("<title>[^<]*</title>|<desc>[^<]*</desc>|<!--.*?-->"),
        QRegularExpression::DotMatchesEverythingOption);
    const QByteArray shown = QString::fromUtf8(document).remove(title).simplified().toUtf8();
    return QCryptographicHash::hash(shown, QCryptographicHash::Sha1);
}

QByteArray content_of_file(const QString& path) {
    QFile file(path);
    QCryptographicHash hash(QCryptographicHash::Sha1);
    return file.open(QIODevice::ReadOnly) && hash.addData(&file) ? hash.result() : QByteArray();
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
        if (picture_file_name(name).extension == ".svg") {
            check_document(name, path);
        } else {
            check_bitmap(name, path);
        }
    }

    void check_document(const std::string& name, const QString& path) {
        QByteArray document;
        QString unread;
        if (!read_panel_document(path, document, unread)) {
            error(CHECK_SVG_LOAD, name, unread.toStdString());
            return;
        }
        bool is_drawn = true;
        for (const svg_fault& fault : find_svg_faults(document)) {
            is_drawn = is_drawn && !fault.is_fatal;
            report_.add(folder_.found(fault.is_fatal ? severity::ERROR : severity::WARNING, fault.check, name,
                                      fault.text, fault.line, fault.column));
        }
        if (!is_drawn) {
            return;
        }
        if (!is_drawn_by_panel(document, path)) {
            error(CHECK_SVG_LOAD, name,
                  "the panel refuses to draw it: it holds too much, too deep, or what has no end");
            return;
        }
        const QSvgRenderer renderer(document);
        if (!renderer.isValid()) {
            error(CHECK_SVG_LOAD, name, "the toolkit does not load it");
            return;
        }
        sizes_[name] = renderer.viewBoxF().size();
        same_[content_of(document)].push_back(name);
    }

    void check_bitmap(const std::string& name, const QString& path) {
        const panel_bitmap bitmap(path);
        if (!bitmap.fault.isEmpty()) {
            error(CHECK_BITMAP, name, bitmap.fault.toStdString());
            return;
        }
        if (bitmap.format != path.section(QLatin1Char('.'), -1).toLower()) {
            warn(CHECK_BITMAP, name, "is of the format " + bitmap.format.toStdString());
        }
        sizes_[name] = bitmap.size;
        same_[content_of_file(path)].push_back(name);
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
