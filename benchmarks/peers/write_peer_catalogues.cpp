/*
 * Writes the compiled-in texts of a language for the peers: texts.po for msgfmt, texts.ts for lrelease,
 * root.txt for genrb. The key of a text is the message's id in each of them; texts.keys holds the keys, a
 * line each.
 */
#include "dvc_pnl_rmg_language_resource.h"
#include "dvc_pnl_rmg_message_table.h"

#include <QApplication>
#include <QFile>
#include <QTextStream>

#include <cstdio>

namespace {

QString quoted(const QString& text) {
    QString escaped = text;
    escaped.replace(QLatin1String("\\"), QLatin1String("\\\\"));
    escaped.replace(QLatin1String("\""), QLatin1String("\\\""));
    escaped.replace(QLatin1String("\n"), QLatin1String("\\n"));
    return QLatin1Char('"') + escaped + QLatin1Char('"');
}

/** Where the texts go, with what stands around each. */
class catalogue_file {
public:
    catalogue_file(const QString& path, const char* head)
        : file_(path)
        , stream_(&file_) {
        stream_.setCodec("UTF-8");
        is_open_ = file_.open(QIODevice::WriteOnly);
        stream_ << head;
    }
    QTextStream& stream() { return stream_; }
    bool close(const char* tail) {
        stream_ << tail;
        stream_.flush();
        return is_open_ && stream_.status() == QTextStream::Ok && file_.flush();
    }

private:
    QFile file_;
    QTextStream stream_;
    bool is_open_ = false;
};

} // namespace

int main(int argc, char** argv) {
    const QApplication application(argc, argv);
    if (argc != 3) {
        std::fprintf(stderr, "usage: write_peer_catalogues FOLDER LANGUAGE\n");
        return 2;
    }
    const QString folder = QString::fromLocal8Bit(argv[1]) + QLatin1Char('/');
    const int language = QString::fromLatin1(argv[2]).toInt();
    catalogue_file po(folder + QLatin1String("texts.po"),
                      "msgid \"\"\nmsgstr \"Content-Type: text/plain; charset=UTF-8\\n\"\n");
    catalogue_file ts(
        folder + QLatin1String("texts.ts"),
        "<?xml version=\"1.0\" encoding=\"utf-8\"?>\n<TS version=\"2.1\"><context><name>panel</name>\n");
    catalogue_file icu(folder + QLatin1String("root.txt"), "root:table(nofallback) {\n");
    catalogue_file keys(folder + QLatin1String("texts.keys"), "");
    auto& texts = *velarion::dvc_pnl_rmg_language_resource::dvc_pnl_rmg_create_instance();
    for (int i = 0; i < dvc_pnl_rmg_imple_message_table_size; ++i) {
        const QByteArray key = QByteArray::number(dvc_pnl_rmg_impl_message_table[i].message_id);
        const QString text = texts.dvc_pnl_rmg_get_message(key.constData(), language);
        keys.stream() << key << '\n';
        po.stream() << "msgid \"" << key << "\"\nmsgstr " << quoted(text) << '\n';
        ts.stream() << "<message><source>" << key << "</source><translation>" << text.toHtmlEscaped()
                    << "</translation></message>\n";
        icu.stream() << '"' << key << "\" { " << quoted(text) << " }\n";
    }
    velarion::dvc_pnl_rmg_language_resource::dvc_pnl_rmg_delete_instance();
    const bool is_po = po.close("");
    const bool is_ts = ts.close("</context></TS>\n");
    const bool is_icu = icu.close("}\n");
    if (!is_po || !is_ts || !is_icu || !keys.close("")) {
        std::fprintf(stderr, "write_peer_catalogues: %s cannot be written\n", argv[1]);
        return 3;
    }
    return 0;
}
