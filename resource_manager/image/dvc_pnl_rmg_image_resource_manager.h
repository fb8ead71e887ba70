#ifndef DVC_PNL_RMG_IMAGE_RESOURCE_MANAGER_H
#define DVC_PNL_RMG_IMAGE_RESOURCE_MANAGER_H

#include "dvc_pnl_export.h"
#include "dvc_pnl_rmg_image_name_table.h"

#include <QByteArray>
#include <QObject>
#include <QPixmap>
#include <QString>

#include <map>
#include <string>
#include <vector>

class QMovie;
class QSvgRenderer;

namespace velarion {

class dvc_pnl_rmg_image_cache;

/** Results of an image request. */
constexpr int DVC_PNL_RMG_IMAGE_OK = 0;
/** No bitmap could be loaded, or the identifier has no file. */
constexpr int DVC_PNL_RMG_IMAGE_LOAD_FAILED = 2;
/** The identifier has no image name. */
constexpr int DVC_PNL_RMG_IMAGE_NO_IMAGE_NAME = 3;
/** No SVG picture could be drawn. */
constexpr int DVC_PNL_RMG_IMAGE_SVG_FAILED = 4;
/** The number is not in the table or has no picture, or the external image is not registered. */
constexpr int DVC_PNL_RMG_IMAGE_NOT_FOUND = 5;

/**
 * The one object from which the panel's user interface gets its pictures.
 *
 * An image identifier is an external name when it contains ':', a number of the image table when it is
 * wholly a decimal integer, and the name of a file in the image directory otherwise. Directories and names
 * are joined as they stand. Sizes are device pixels; a size counts only when both its values are positive.
 *
 * The row of the last number looked up, the current image element, is kept: a request for the same number
 * takes it as it is, also when the look-up that set it told that there is no picture.
 *
 * Nothing draws, loads or scales a pixmap whose width, height and 32 bits of a pixel come to 2^31 or more:
 * such a file or document is like one that cannot be read, and such a size is not scaled to. The same goes
 * for SVG documents that would exhaust whoever draws them (docs/pictures.md tells which), and for anything
 * that is no ordinary file. All else is drawn as the toolkit draws it; compressed SVG documents are inflated.
 *
 * A single instance for the process, without locks: GUI thread only. Nothing is traced but the preload.
 */
class DVC_PNL_EXPORT dvc_pnl_rmg_image_resource_manager : public QObject {
public:
    static const std::string DARKER_IMAGE_NAME_PREFIX;    ///< of a darker twin's file name
    static const std::string RESOURCE_DIR;                ///< the image directory
    static const std::string RESOURCE_SHEETEXTENSION_DIR; ///< the sheet extension directory

    /** Creates the instance if there is none; pictures are not preloaded. @return it, owned by the class */
    static dvc_pnl_rmg_image_resource_manager* dvc_pnl_rmg_create_instance();
    /** @return the instance, or null when there is none */
    static dvc_pnl_rmg_image_resource_manager* dvc_pnl_rmg_get_instance();
    /** Destroys the instance, if there is one, and with it every picture it holds. */
    static void dvc_pnl_rmg_delete_instance();

    dvc_pnl_rmg_image_resource_manager(const dvc_pnl_rmg_image_resource_manager&) = delete;
    dvc_pnl_rmg_image_resource_manager& operator=(const dvc_pnl_rmg_image_resource_manager&) = delete;

    /**
     * Loads the global navigation icons into the cache, at their natural sizes, and traces its start and
     * its end. May be called again.
     */
    void dvc_pnl_rmg_initialize();

    /**
     * Delivers the picture of an image identifier.
     *
     * A number tries its file with the suffix, then that name behind "d_", in the image directory, and
     * caches some SVG pictures. A file identifier tries the name with the suffix, without it, and each of
     * them behind "d_" (unless it begins so), bitmaps in the image directory and then in the sheet
     * extension directory. SVG pictures are drawn at the requested size, all others are scaled to it. An
     * external image serves the one request that delivers it.
     *
     * @param id          image identifier
     * @param pixmap      receives the picture; unchanged when none is delivered, but for the placeholder of
     *                    get_error_image(), drawn for every failed request except external ones; not null
     * @param suffix      state suffix, put before the extension ("_on"); may be empty
     * @param found_name  receives the name the picture was found under, UTF-8; empty on failure
     * @param width,height  device pixels; natural size unless both are positive
     * @return DVC_PNL_RMG_IMAGE_OK, or the reason why there is no picture; one that cannot be scaled to the
     *         requested size is delivered as it is
     */
    int dvc_pnl_rmg_get_image(const QString& id, QPixmap* pixmap, const QString& suffix,
                              std::string& found_name, int width, int height);
    /** The same without a suffix and without the found name. */
    int dvc_pnl_rmg_get_image(const QString& id, QPixmap* pixmap, int width, int height);

    /**
     * The path of an animated picture; whether it exists is not tested.
     *
     * @param id    a number of any type of picture; any other text is taken as a file name
     * @param path  receives the path; that of ERROR_MOVIE.gif on failure
     * @return DVC_PNL_RMG_IMAGE_OK, DVC_PNL_RMG_IMAGE_NOT_FOUND or DVC_PNL_RMG_IMAGE_NO_IMAGE_NAME
     */
    int dvc_pnl_rmg_get_movie_filepath(const QString& id, QString& path);

    /** @return the name with the suffix before its last '.', or behind it when there is none; never null */
    QString get_image_name_with_state_suffix(QString name, const QString& suffix);

    /** Orders two DVC_PNL_RMG_IMPL_IMAGE_NAME records by identifier: -1, 0 or 1. */
    static int compare_element(const void* first, const void* second);
    /**
     * Searches the image table.
     *
     * @param key    only its image_id is used
     * @param found  receives the row; unchanged when there is none
     * @return whether a row has the identifier
     */
    bool search_image_element(const DVC_PNL_RMG_IMPL_IMAGE_NAME& key, DVC_PNL_RMG_IMPL_IMAGE_NAME& found);
    /** @return the image type by the extension of the record's file name, in any case */
    int judgement_image_type(const DVC_PNL_RMG_IMPL_IMAGE_NAME& image);
    /**
     * Tells the type of an identifier. A number of the table and an external name become the current
     * image element.
     *
     * @param id  UTF-8; null gives DVC_PNL_RMG_IMAGE_TYPE_NONE
     * @return a DVC_PNL_RMG_IMAGE_TYPE_ value
     */
    int dvc_pnl_rmg_search_image_id_info(const char* id);
    /** As dvc_pnl_rmg_search_image_id_info(). */
    int dvc_pnl_rmg_get_image_type(const char* id);
    /**
     * @param file  receives the file name of a number, or an external name itself; for any other
     *              identifier the file name of the current image element, empty when it has none
     */
    void dvc_pnl_rmg_get_icon_file_mame(const QString& id, QString& file);
    /** @param key  receives the cache key: "wwwwww-hhhhhh-name" when a size counts, else the name */
    void dvc_pnl_rmg_create_image_id(QString name, int width, int height, QString& key);

    /** @param kilobytes  limit of the cache, at most 2097151; ignored when less than 1 */
    void dvc_pnl_rmg_set_cache_limit(int kilobytes);
    /** @return the limit of the cache in units of 1024 bytes */
    int dvc_pnl_rmg_get_cache_limit();
    /** @return the cache, to look at what it holds; the manager's own, gone with the instance */
    const dvc_pnl_rmg_image_cache& cache() const { return *image_cache_; }

    /**
     * Draws an SVG document, stretched to the whole pixmap; what it leaves unpainted is transparent.
     *
     * @param renderer      holds the document; what it refers to is not inspected
     * @param width,height  device pixels; the size of the view box is used unless both are positive
     * @return a pixmap of the caller's; a null pixmap, never a null pointer, when there is no picture
     */
    QPixmap* dvc_pnl_rmg_convert_svg_image_data(QSvgRenderer& renderer, int width, int height);
    /**
     * The same for a file of the image directory, compressed or not; a null pixmap also for what is no
     * ordinary file, has more than 16 MiB, inflated or not, or goes beyond another limit. The file is read
     * once; bitmaps that it refers to are found from its folder.
     */
    QPixmap* dvc_pnl_rmg_create_svg_image_data(QString name, int width, int height);
    /** The same for the bytes of a document. */
    QPixmap* dvc_pnl_rmg_create_svg_image_data(QByteArray document, int width, int height);

    /**
     * Scales a pixmap in place, smoothly and without regard to its aspect ratio.
     *
     * @param width,height  device pixels; no effect unless both are positive and the size is below the limit
     */
    void dvc_pnl_rmg_qpixmap_size_convert(QPixmap& pixmap, int width, int height);

    /**
     * While the environment variable TEST_ICON_MESSAGE exists: draws ERROR_IMAGE.png, at its own size,
     * with the image name of the current image element on it. No effect otherwise.
     *
     * @param pixmap  receives the placeholder; a null pixmap when ERROR_IMAGE.png does not load; not null
     */
    void get_error_image(QPixmap* pixmap);
    /**
     * The placeholder animation, made at the first call and not started.
     *
     * @param movie   receives it, the same at each call
     * @param parent  of the first call: owns the movie and outlives its use; null keeps it for good
     */
    void get_error_movie(QMovie*& movie, QObject* parent);
    /** Forgets the placeholders without freeing them; called once, at creation. */
    void dvc_pnl_rmg_initilize_error_image();

    /**
     * Keeps a path for the host; the manager itself does not use it.
     *
     * @param error  0
     * @return DVC_PNL_RMG_RESULT_OK; DVC_PNL_RMG_RESULT_NOT_FOUND for a null or empty path, which changes
     *         nothing
     */
    int dvc_pnl_rmg_set_machine_specific_path(const char* path, int& error);
    /** @return the path, empty before any was set; valid until the next one */
    const char* dvc_pnl_rmg_get_machine_data_file();

    /**
     * Tells whether a data file exists. Data files are bytes in the platform's data-file store, under
     * names that go there as they are.
     *
     * @param error  here and in the next three operations: 0, or the code of the first platform call that
     *               failed; for a missing file that of the test for it
     */
    bool dvc_pnl_rmg_is_exist_data_file(const char* name, int& error);
    /**
     * @return DVC_PNL_RMG_RESULT_OK; ..._INVALID_ARGUMENT for a null or empty name; ..._NOT_FOUND when
     *         there is no such file; ..._IO_ERROR
     */
    int dvc_pnl_rmg_remove_data_file(const char* name, int& error);
    /**
     * Creates or replaces a file; a failure may leave part of it behind.
     *
     * @param bytes  may be null when there are none
     * @param count  bytes; 0 makes an empty file; more than 32 bits hold gives ..._IO_ERROR with error 0
     * @return DVC_PNL_RMG_RESULT_OK; ..._INVALID_ARGUMENT for a null or empty name or null bytes of a count;
     *         ..._IO_ERROR
     */
    int dvc_pnl_rmg_set_image_data(const char* name, const unsigned char* bytes, unsigned long count,
                                   int& error);
    /**
     * @param data  receives exactly the bytes that arrived; unchanged on failure, except that it holds
     *              them when only closing the file failed
     * @return as dvc_pnl_rmg_remove_data_file(); ..._IO_ERROR with error 0 when there is not enough memory
     */
    int dvc_pnl_rmg_get_image_data(const char* name, std::vector<unsigned char>& data, int& error);

    /**
     * Registers a picture for one request.
     *
     * @param id     served only when it contains ':'
     * @param bytes  an encoded picture of any format the toolkit knows whose header tells its size; not kept
     * @param count  bytes, at most 2147483647
     * @return DVC_PNL_RMG_RESULT_OK; DVC_PNL_RMG_RESULT_IMAGE_ERROR when there are no bytes or too many, when
     *         they cannot be decoded, or when the identifier is taken, which changes nothing
     */
    int dvc_pnl_rmg_set_external_image(const std::string& id, unsigned char* bytes, unsigned long count);
    /** Removes a registered picture, if there is one. */
    void dvc_pnl_rmg_clear_external_image(const std::string& id);

private:
    static constexpr int NO_IMAGE_ID = -1;
    static constexpr char EXTERNAL_MARK = ':'; ///< in the identifier of an external image

    struct image_request;

    dvc_pnl_rmg_image_resource_manager();
    ~dvc_pnl_rmg_image_resource_manager() override;

    int get_image(image_request& request);
    int get_external_image(image_request& request);
    int get_file_image(image_request& request);
    int get_table_image(image_request& request, int number);
    bool find_current_image(int number);
    int take_table_row(int number);
    bool take_cached(image_request& request, const QString& name);
    bool take_rendered(image_request& request, const QString& name, bool is_cacheable);
    bool take_loaded(image_request& request, const QString& directory, const QString& name);
    int fail(image_request& request, int result);
    static bool is_requested_size(int width, int height);
    static QSize requested_size(int width, int height);
    static QString image_key(const QString& name, int width, int height);
    QString error_movie_path() const;
    void preload(const QString& file_name);

    static dvc_pnl_rmg_image_resource_manager* instance_;

    QString resource_dir_;
    QString sheet_extension_dir_;
    std::string machine_data_file_;
    int data_area_;
    int data_group_;
    dvc_pnl_rmg_image_cache* image_cache_;
    QPixmap* error_image_;
    QMovie* error_movie_;
    DVC_PNL_RMG_IMPL_IMAGE_NAME current_image_;
    std::map<std::string, QPixmap> external_images_;
    std::string external_name_; ///< what current_image_ points to after an external identifier
};

} // namespace velarion

#endif
