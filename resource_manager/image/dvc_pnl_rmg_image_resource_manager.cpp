#include "dvc_pnl_rmg_image_resource_manager.h"

#include "ascii_letters.h"
#include "dvc_pnl_rmg_data_file_access.h"
#include "dvc_pnl_rmg_image_cache.h"
#include "dvc_pnl_rmg_image_inspection.h"
#include "dvc_pnl_utl_toolkit.h"
#include "plain_number.h"
#include "trace.h"

#include <QStringList>

#include <cstring>
#include <limits>
#include <memory>

namespace velarion {

namespace {

constexpr char SVG_LETTERS[] = "svg";
constexpr int SVG_EXTENSION_SIZE = 4; // with its dot
constexpr char PRELOADED_NAME[] = "ico_globalnavi";
constexpr const char* CACHED_NAMES[] = {"background_setting_i", "list_globalnavi"};

constexpr int TRACE_MODULE = 0x5302;
constexpr int TRACE_GROUP = 0x102;
constexpr int TRACE_PERFORMANCE = 0x102;

std::string to_utf8(const QString& text) {
    const QByteArray bytes = text.toUtf8();
    return std::string(bytes.constData(), static_cast<std::size_t>(bytes.size()));
}

/** Reads in place what nearly every number is. @return whether it is one; it holds no external mark then */
bool is_plain_number(const QString& id, int& number) {
    char text[std::numeric_limits<int>::digits10 + 2]; // with a sign and the end
    const int size = id.size();
    if (size >= static_cast<int>(sizeof text)) {
        return false;
    }
    for (int i = 0; i < size; ++i) {
        const unsigned int code = code_of(id[i]);
        if (code > '9') {
            return false;
        }
        text[i] = static_cast<char>(code);
    }
    text[size] = '\0';
    const char* const rest = read_plain_digits(text, number);
    return rest && *rest == '\0';
}

bool is_number(const QString& id, int& number) {
    return is_plain_number(id, number) || read_number(id.toUtf8().constData(), number);
}

/** The text of a name, nearly always of ASCII characters. */
void write_utf8(const QString& text, std::string& utf8) {
    const int size = text.size();
    utf8.resize(static_cast<std::size_t>(size));
    for (int i = 0; i < size; ++i) {
        const unsigned int code = code_of(text[i]);
        if (code > 0x7F) {
            utf8 = to_utf8(text);
            return;
        }
        utf8[static_cast<std::size_t>(i)] = static_cast<char>(code);
    }
}

bool is_empty(const char* text) {
    return !text || *text == '\0';
}

bool is_svg(const QString& file_name) {
    const int extension = file_name.size() - SVG_EXTENSION_SIZE;
    return extension >= 0 && file_name[extension] == QLatin1Char('.') &&
           are_letters(file_name.constData() + extension + 1, SVG_LETTERS);
}

bool is_cached_name(const QString& name) {
    for (const char* part : CACHED_NAMES) {
        if (name.contains(QLatin1String(part))) {
            return true;
        }
    }
    return false;
}

QString darker_name(const QString& name) {
    return dvc_pnl_utl_from_8bit(dvc_pnl_rmg_image_resource_manager::DARKER_IMAGE_NAME_PREFIX.c_str()) + name;
}

bool is_darker_name(const QString& name) {
    return name.startsWith(
        dvc_pnl_utl_from_8bit(dvc_pnl_rmg_image_resource_manager::DARKER_IMAGE_NAME_PREFIX.c_str()));
}

void add_with_darker_name(QStringList& candidates, const QString& name) {
    candidates.append(name);
    if (!is_darker_name(name)) {
        candidates.append(darker_name(name));
    }
}

} // namespace

/** One image request: what is asked for and where the answer goes. */
struct dvc_pnl_rmg_image_resource_manager::image_request {
    const QString& id;
    const QString& suffix;
    int width;
    int height;
    QPixmap& pixmap;
    std::string* found_name; ///< null when nobody asks for it

    void tell_found_name(const QString& name) const {
        if (found_name) {
            write_utf8(name, *found_name);
        }
    }
};

const std::string dvc_pnl_rmg_image_resource_manager::DARKER_IMAGE_NAME_PREFIX = "d_";
const std::string dvc_pnl_rmg_image_resource_manager::RESOURCE_DIR = "/usr/local/vuk_app/bin/cmn/image/";
const std::string dvc_pnl_rmg_image_resource_manager::RESOURCE_SHEETEXTENSION_DIR = "/mnt/sheetext/";
dvc_pnl_rmg_image_resource_manager* dvc_pnl_rmg_image_resource_manager::instance_ = nullptr;

dvc_pnl_rmg_image_resource_manager* dvc_pnl_rmg_image_resource_manager::dvc_pnl_rmg_create_instance() {
    if (!instance_) {
        instance_ = new dvc_pnl_rmg_image_resource_manager;
        instance_->dvc_pnl_rmg_initilize_error_image();
    }
    return instance_;
}

dvc_pnl_rmg_image_resource_manager* dvc_pnl_rmg_image_resource_manager::dvc_pnl_rmg_get_instance() {
    return instance_;
}

void dvc_pnl_rmg_image_resource_manager::dvc_pnl_rmg_delete_instance() {
    delete instance_;
    instance_ = nullptr;
}

dvc_pnl_rmg_image_resource_manager::dvc_pnl_rmg_image_resource_manager()
    : resource_dir_(dvc_pnl_utl_from_8bit(RESOURCE_DIR.c_str()))
    , sheet_extension_dir_(dvc_pnl_utl_from_8bit(RESOURCE_SHEETEXTENSION_DIR.c_str()))
    , data_area_(DVC_PNL_RMG_DATA_AREA)
    , data_group_(DVC_PNL_RMG_DATA_GROUP)
    , image_cache_(new dvc_pnl_rmg_image_cache)
    , error_image_(nullptr)
    , error_movie_(nullptr)
    , current_image_{NO_IMAGE_ID, nullptr, nullptr} {}

dvc_pnl_rmg_image_resource_manager::~dvc_pnl_rmg_image_resource_manager() {
    delete image_cache_;
    delete error_image_;
}

void dvc_pnl_rmg_image_resource_manager::dvc_pnl_rmg_initialize() {
    emwGENTrcPrintf(TRACE_MODULE, TRACE_GROUP, TRACE_PERFORMANCE,
                    "[PERFORM]: Resource Manager Init. (START)");
    for (int i = 0; i < dvc_pnl_rmg_imple_image_name_table_size; ++i) {
        const char* file_name = dvc_pnl_rmg_impl_image_name_table[i].file_name;
        if (std::strstr(file_name, PRELOADED_NAME)) {
            preload(dvc_pnl_utl_from_8bit(file_name));
        }
    }
    emwGENTrcPrintf(TRACE_MODULE, TRACE_GROUP, TRACE_PERFORMANCE, "[PERFORM]: Resource Manager Init. (END)");
}

void dvc_pnl_rmg_image_resource_manager::preload(const QString& file_name) {
    std::unique_ptr<QPixmap> picture;
    if (is_svg(file_name)) {
        picture.reset(dvc_pnl_rmg_create_svg_image_data(file_name, 0, 0));
    } else {
        picture.reset(new QPixmap);
        static_cast<void>(dvc_pnl_rmg_load_image_file(resource_dir_ + file_name, *picture));
    }
    if (!picture->isNull()) {
        image_cache_->dvc_pnl_rmg_image_insert(image_key(file_name, 0, 0), picture.release(), 0);
    }
}

int dvc_pnl_rmg_image_resource_manager::dvc_pnl_rmg_get_image(const QString& id, QPixmap* pixmap,
                                                              const QString& suffix, std::string& found_name,
                                                              int width, int height) {
    found_name.clear();
    image_request request = {id, suffix, width, height, *pixmap, &found_name};
    return get_image(request);
}

int dvc_pnl_rmg_image_resource_manager::dvc_pnl_rmg_get_image(const QString& id, QPixmap* pixmap, int width,
                                                              int height) {
    const QString no_suffix;
    image_request request = {id, no_suffix, width, height, *pixmap, nullptr};
    return get_image(request);
}

int dvc_pnl_rmg_image_resource_manager::get_image(image_request& request) {
    int number = 0;
    if (is_plain_number(request.id, number)) {
        return get_table_image(request, number);
    }
    if (request.id.contains(QLatin1Char(EXTERNAL_MARK))) {
        return get_external_image(request);
    }
    return is_number(request.id, number) ? get_table_image(request, number) : get_file_image(request);
}

int dvc_pnl_rmg_image_resource_manager::get_external_image(image_request& request) {
    const std::string id = to_utf8(request.id);
    const auto image = external_images_.find(id);
    if (image == external_images_.end()) {
        return DVC_PNL_RMG_IMAGE_NOT_FOUND;
    }
    request.pixmap = image->second;
    dvc_pnl_rmg_qpixmap_size_convert(request.pixmap, request.width, request.height);
    request.tell_found_name(request.id);
    dvc_pnl_rmg_clear_external_image(id);
    return DVC_PNL_RMG_IMAGE_OK;
}

int dvc_pnl_rmg_image_resource_manager::get_file_image(image_request& request) {
    const QString name = get_image_name_with_state_suffix(request.id, request.suffix);
    QStringList candidates;
    add_with_darker_name(candidates, name);
    if (!request.suffix.isEmpty()) {
        add_with_darker_name(candidates, request.id);
    }
    const bool is_svg_request = is_svg(name);
    for (const QString& candidate : candidates) {
        const bool is_taken = is_svg_request ? take_rendered(request, candidate, false)
                                             : take_loaded(request, resource_dir_, candidate) ||
                                                   take_loaded(request, sheet_extension_dir_, candidate);
        if (is_taken) {
            return DVC_PNL_RMG_IMAGE_OK;
        }
    }
    return fail(request, is_svg_request ? DVC_PNL_RMG_IMAGE_SVG_FAILED : DVC_PNL_RMG_IMAGE_LOAD_FAILED);
}

int dvc_pnl_rmg_image_resource_manager::get_table_image(image_request& request, int number) {
    if (!find_current_image(number)) {
        return fail(request, DVC_PNL_RMG_IMAGE_NOT_FOUND);
    }
    if (is_empty(current_image_.image_name)) {
        return fail(request, DVC_PNL_RMG_IMAGE_NO_IMAGE_NAME);
    }
    if (is_empty(current_image_.file_name)) {
        return fail(request, DVC_PNL_RMG_IMAGE_LOAD_FAILED);
    }
    const QString file_name = dvc_pnl_utl_from_8bit(current_image_.file_name);
    const QString name =
        request.suffix.isEmpty() ? file_name : get_image_name_with_state_suffix(file_name, request.suffix);
    if (take_cached(request, name)) {
        return DVC_PNL_RMG_IMAGE_OK;
    }
    const QString darker = darker_name(name);
    if (take_cached(request, darker)) {
        return DVC_PNL_RMG_IMAGE_OK;
    }
    if (is_svg(file_name)) {
        const bool is_taken = take_rendered(request, name, true) || take_rendered(request, darker, true);
        return is_taken ? DVC_PNL_RMG_IMAGE_OK : fail(request, DVC_PNL_RMG_IMAGE_SVG_FAILED);
    }
    const bool is_taken =
        take_loaded(request, resource_dir_, name) || take_loaded(request, resource_dir_, darker);
    return is_taken ? DVC_PNL_RMG_IMAGE_OK : fail(request, DVC_PNL_RMG_IMAGE_LOAD_FAILED);
}

/** Makes the row of a number the current image element, unless it is so already. */
bool dvc_pnl_rmg_image_resource_manager::find_current_image(int number) {
    return number == current_image_.image_id || take_table_row(number) != DVC_PNL_RMG_IMAGE_TYPE_NONE;
}

bool dvc_pnl_rmg_image_resource_manager::take_cached(image_request& request, const QString& name) {
    const QPixmap* cached =
        image_cache_->dvc_pnl_rmg_image_get_pixmap(image_key(name, request.width, request.height));
    if (!cached) {
        return false;
    }
    request.pixmap = *cached;
    request.tell_found_name(name);
    return true;
}

bool dvc_pnl_rmg_image_resource_manager::take_rendered(image_request& request, const QString& name,
                                                       bool is_cacheable) {
    std::unique_ptr<QPixmap> picture(dvc_pnl_rmg_create_svg_image_data(name, request.width, request.height));
    if (picture->isNull()) {
        return false;
    }
    request.pixmap = *picture;
    request.tell_found_name(name);
    if (is_cacheable && is_cached_name(name)) {
        image_cache_->dvc_pnl_rmg_image_insert(image_key(name, request.width, request.height),
                                               picture.release(), 0);
    }
    return true;
}

bool dvc_pnl_rmg_image_resource_manager::take_loaded(image_request& request, const QString& directory,
                                                     const QString& name) {
    QPixmap picture;
    if (!dvc_pnl_rmg_load_image_file(directory + name, picture)) {
        return false;
    }
    dvc_pnl_rmg_qpixmap_size_convert(picture, request.width, request.height);
    if (picture.isNull()) {
        return false;
    }
    request.pixmap = picture;
    request.tell_found_name(name);
    return true;
}

int dvc_pnl_rmg_image_resource_manager::fail(image_request& request, int result) {
    get_error_image(&request.pixmap);
    return result;
}

int dvc_pnl_rmg_image_resource_manager::dvc_pnl_rmg_get_movie_filepath(const QString& id, QString& path) {
    int number = 0;
    if (!is_number(id, number)) {
        path = resource_dir_ + id;
        return DVC_PNL_RMG_IMAGE_OK;
    }
    const bool is_found = find_current_image(number);
    if (is_found && !is_empty(current_image_.image_name)) {
        path = resource_dir_ + dvc_pnl_utl_from_8bit(current_image_.file_name);
        return DVC_PNL_RMG_IMAGE_OK;
    }
    path = error_movie_path();
    return is_found ? DVC_PNL_RMG_IMAGE_NO_IMAGE_NAME : DVC_PNL_RMG_IMAGE_NOT_FOUND;
}

QString dvc_pnl_rmg_image_resource_manager::get_image_name_with_state_suffix(QString name,
                                                                             const QString& suffix) {
    if (name.isEmpty()) {
        return QString::fromLatin1("");
    }
    const int extension = name.lastIndexOf(QLatin1Char('.'));
    return name.insert(extension < 0 ? name.size() : extension, suffix);
}

void dvc_pnl_rmg_image_resource_manager::dvc_pnl_rmg_set_cache_limit(int kilobytes) {
    if (kilobytes >= 1) {
        image_cache_->dvc_pnl_rmg_set_cache_limit(kilobytes);
    }
}

int dvc_pnl_rmg_image_resource_manager::dvc_pnl_rmg_get_cache_limit() {
    return image_cache_->dvc_pnl_rmg_get_cache_limit();
}

} // namespace velarion
