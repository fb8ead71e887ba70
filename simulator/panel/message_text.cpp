#include "message_text.h"

#include "dvc_pnl_rmg_language_resource.h"

#include <QGuiApplication>

namespace velarion {

namespace {

constexpr QChar LEFT_TO_RIGHT_MARK(0x200e);

} // namespace

QString (*message_text::disguise_)(const QString&) = nullptr;

message_text message_text::literal(const QString& text) {
    message_text made;
    made.literal_ = text;
    return made;
}

message_text message_text::ordered(const QString& text) {
    message_text made = literal(text);
    made.is_ordered_ = true;
    return made;
}

QString message_text::read() const {
    if (!is_message()) {
        const bool is_turned = is_ordered_ && QGuiApplication::layoutDirection() == Qt::RightToLeft;
        return is_turned ? LEFT_TO_RIGHT_MARK + literal_ + LEFT_TO_RIGHT_MARK : literal_;
    }
    QString text = dvc_pnl_rmg_language_resource::dvc_pnl_rmg_get_instance()->dvc_pnl_rmg_get_message(
        id_.toLatin1().constData());
    if (disguise_) {
        text = disguise_(text);
    }
    for (int i = 0; i < arguments_.size(); ++i) {
        text.replace(QStringLiteral("%%1").arg(i + 1), arguments_[i]);
    }
    return text;
}

} // namespace velarion
