#include "message_text.h"

#include "dvc_pnl_rmg_language_resource.h"

namespace velarion {

message_text message_text::literal(const QString& text) {
    message_text made;
    made.literal_ = text;
    return made;
}

QString message_text::read() const {
    if (!is_message()) {
        return literal_;
    }
    QString text = dvc_pnl_rmg_language_resource::dvc_pnl_rmg_get_instance()->dvc_pnl_rmg_get_message(
        id_.toLatin1().constData());
    for (int i = 0; i < arguments_.size(); ++i) {
        text.replace(QStringLiteral("%%1").arg(i + 1), arguments_[i]);
    }
    return text;
}

} // namespace velarion
