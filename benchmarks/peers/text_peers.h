#ifndef TEXT_PEERS_H
#define TEXT_PEERS_H

#include <QString>

#include <unicode/ures.h>

#include <memory>
#include <string>

class QTranslator;

namespace velarion {

/** The same texts under the same keys in what else a program could take them from. Of one thread. */
class text_peers {
public:
    /**
     * Opens texts.qm, de/LC_MESSAGES/panel.mo and root.res of a folder; it may have no root.res.
     *
     * @throws std::runtime_error another catalogue is not there, or it is none
     */
    explicit text_peers(const std::string& folder);
    ~text_peers();

    static QString by_gettext(const char* key);
    static QString by_translator(const char* key);
    bool has_icu() const { return static_cast<bool>(bundle_); }
    QString by_icu(const char* key) const;

private:
    struct bundle_closer {
        void operator()(UResourceBundle* bundle) const { ures_close(bundle); }
    };
    std::unique_ptr<QTranslator> translator_;
    std::unique_ptr<UResourceBundle, bundle_closer> bundle_;
};

} // namespace velarion

#endif
