#include "picture_origin.h"

#include "dvc_pnl_common_utility.h"
#include "dvc_pnl_rmg_image_resource_manager.h"
#include "picture_requests.h"

#include <QPixmap>

namespace velarion {

namespace {

dvc_pnl_rmg_image_resource_manager& images() {
    return *dvc_pnl_rmg_image_resource_manager::dvc_pnl_rmg_get_instance();
}

bool is_external(const QString& name) {
    return name.contains(QLatin1Char(':'));
}

picture_variant variant_of(const picture_origin& origin, const QString& suffix) {
    if (origin.found_name.isEmpty()) {
        return picture_variant::MISSING;
    }
    if (is_external(origin.found_name)) {
        return picture_variant::EXTERNAL;
    }
    if (!suffix.isEmpty()) {
        const QString state = images().get_image_name_with_state_suffix(origin.file, suffix);
        if (origin.found_name == state) {
            return picture_variant::STATE;
        }
        if (!origin.found_name.endsWith(state)) {
            return origin.found_name == origin.file ? picture_variant::PLAIN_FOR_STATE
                                                    : picture_variant::DARKER_FOR_STATE;
        }
    }
    return origin.found_name == origin.file ? picture_variant::NORMAL : picture_variant::DARKER;
}

} // namespace

picture_origin picture_origins::find(const shown_picture& picture) const {
    picture_origin origin;
    origin.file = picture.id;
    DVC_PNL_RMG_IMPL_IMAGE_NAME wanted = {0, nullptr, nullptr};
    DVC_PNL_RMG_IMPL_IMAGE_NAME row;
    if (dvc_pnl_common_utility::string_to_int(picture.id.toStdString(), wanted.image_id)) {
        origin.image_id = wanted.image_id;
        origin.file.clear();
        if (images().search_image_element(wanted, row)) {
            origin.name = QString::fromUtf8(row.image_name);
            origin.file = QString::fromUtf8(row.file_name).trimmed();
        }
    }
    origin.found_name = picture.found_name;
    origin.variant = variant_of(origin, picture.suffix);
    if (!origin.found_name.isEmpty() && !is_external(origin.found_name)) {
        origin.natural_size =
            picture.natural_size.isEmpty() ? natural_size(origin.found_name) : picture.natural_size;
        origin.is_cached =
            origin.image_id != 0 && picture_requests::is_cached(origin.found_name, picture.requested_size);
    }
    return origin;
}

/** Asks for the file by its own name: the cache takes no part in that. */
QSize picture_origins::natural_size(const QString& file_name) const {
    auto known = sizes_.find(file_name);
    if (known == sizes_.end()) {
        QPixmap pixmap;
        const int result = images().dvc_pnl_rmg_get_image(file_name, &pixmap, 0, 0);
        known = sizes_.insert(file_name, result == DVC_PNL_RMG_IMAGE_OK ? pixmap.size() : QSize());
    }
    return *known;
}

QString describe_variant(picture_variant variant) {
    switch (variant) {
    case picture_variant::NORMAL:
        return QStringLiteral("normal");
    case picture_variant::STATE:
        return QStringLiteral("state");
    case picture_variant::DARKER:
        return QStringLiteral("darker twin");
    case picture_variant::PLAIN_FOR_STATE:
        return QStringLiteral("plain in place of the state");
    case picture_variant::DARKER_FOR_STATE:
        return QStringLiteral("darker twin in place of the state");
    case picture_variant::EXTERNAL:
        return QStringLiteral("handed over by the host");
    case picture_variant::MISSING:
        break;
    }
    return QStringLiteral("missing");
}

} // namespace velarion
