#include "movie_writer.h"

#include <algorithm>
#include <gif_lib.h>
#include <memory>
#include <unordered_map>

namespace velarion {

namespace {

constexpr int COLORS = 256;
constexpr int TRANSPARENT_INDEX = 0;
constexpr unsigned char REPEAT_FOR_EVER[] = {1, 0, 0};

/** At most 255 colours for all frames, and the index of each colour that occurs. */
class color_table {
public:
    explicit color_table(const std::vector<QImage>& frames) {
        for (const QImage& frame : frames) {
            count_colors(frame);
        }
        choose();
    }

    unsigned char index_of(QRgb pixel) {
        if (qAlpha(pixel) == 0) {
            return TRANSPARENT_INDEX;
        }
        const QRgb color = coarse(pixel);
        const auto known = indexes_.find(color);
        return known != indexes_.end() ? known->second
                                       : indexes_.emplace(color, nearest(pixel)).first->second;
    }

    std::vector<GifColorType> colors() const {
        std::vector<GifColorType> colors(COLORS);
        for (std::size_t i = 0; i < chosen_.size(); ++i) {
            colors[i + 1] = {static_cast<GifByteType>(qRed(chosen_[i])),
                             static_cast<GifByteType>(qGreen(chosen_[i])),
                             static_cast<GifByteType>(qBlue(chosen_[i]))};
        }
        return colors;
    }

private:
    /** The shades of smoothed edges are many; what differs less than this looks alike. */
    static QRgb coarse(QRgb pixel) { return pixel & 0x00FCFCFCU; }

    void count_colors(const QImage& frame) {
        for (int y = 0; y < frame.height(); ++y) {
            const QRgb* line = reinterpret_cast<const QRgb*>(frame.constScanLine(y));
            for (int x = 0; x < frame.width(); ++x) {
                if (qAlpha(line[x]) != 0) {
                    auto& use = uses_[coarse(line[x])];
                    ++use.first;
                    use.second = line[x];
                }
            }
        }
    }

    void choose() {
        std::vector<std::pair<int, QRgb>> by_use;
        for (const auto& use : uses_) {
            by_use.push_back(use.second);
        }
        std::sort(by_use.rbegin(), by_use.rend());
        by_use.resize(std::min<std::size_t>(by_use.size(), COLORS - 1));
        for (const auto& use : by_use) {
            chosen_.push_back(use.second);
        }
    }

    unsigned char nearest(QRgb pixel) const {
        const auto distance = [pixel](QRgb other) {
            const int red = qRed(pixel) - qRed(other);
            const int green = qGreen(pixel) - qGreen(other);
            const int blue = qBlue(pixel) - qBlue(other);
            return red * red + green * green + blue * blue;
        };
        const auto found = std::min_element(chosen_.begin(), chosen_.end(), [&distance](QRgb a, QRgb b) {
            return distance(a) < distance(b);
        });
        return static_cast<unsigned char>(found - chosen_.begin() + 1);
    }

    std::unordered_map<QRgb, std::pair<int, QRgb>> uses_; // how often, and one of the colours meant
    std::unordered_map<QRgb, unsigned char> indexes_;
    std::vector<QRgb> chosen_;
};

struct gif_closer {
    void operator()(GifFileType* file) const {
        int ignored = 0;
        EGifCloseFile(file, &ignored);
    }
};

struct color_map_remover {
    void operator()(ColorMapObject* map) const { GifFreeMapObject(map); }
};

/** Takes what the encoder writes. */
int append(GifFileType* file, const GifByteType* bytes, int count) {
    static_cast<std::string*>(file->UserData)->append(bytes, bytes + count);
    return count;
}

bool write_frame(GifFileType* file, const QImage& frame, int delay, color_table& colors) {
    const GraphicsControlBlock control = {DISPOSE_BACKGROUND, false, delay, TRANSPARENT_INDEX};
    GifByteType bytes[4];
    const std::size_t size = EGifGCBToExtension(&control, bytes);
    if (EGifPutExtension(file, GRAPHICS_EXT_FUNC_CODE, static_cast<int>(size), bytes) == GIF_ERROR ||
        EGifPutImageDesc(file, 0, 0, frame.width(), frame.height(), false, nullptr) == GIF_ERROR) {
        return false;
    }
    std::vector<GifPixelType> line(static_cast<std::size_t>(frame.width()));
    for (int y = 0; y < frame.height(); ++y) {
        const QRgb* pixels = reinterpret_cast<const QRgb*>(frame.constScanLine(y));
        std::transform(pixels, pixels + frame.width(), line.begin(),
                       [&colors](QRgb pixel) { return colors.index_of(pixel); });
        if (EGifPutLine(file, line.data(), frame.width()) == GIF_ERROR) {
            return false;
        }
    }
    return true;
}

bool write_repeat(GifFileType* file) {
    return EGifPutExtensionLeader(file, APPLICATION_EXT_FUNC_CODE) == GIF_OK &&
           EGifPutExtensionBlock(file, 11, "NETSCAPE2.0") == GIF_OK &&
           EGifPutExtensionBlock(file, sizeof REPEAT_FOR_EVER, REPEAT_FOR_EVER) == GIF_OK &&
           EGifPutExtensionTrailer(file) == GIF_OK;
}

} // namespace

bool write_movie(const output_folder& output, const std::string& name, const std::vector<QImage>& frames,
                 int delay, std::string& fault) {
    std::vector<QImage> plain;
    for (const QImage& frame : frames) {
        plain.push_back(frame.convertToFormat(QImage::Format_ARGB32));
    }
    color_table colors(plain);
    std::string bytes;
    int code = 0;
    std::unique_ptr<GifFileType, gif_closer> file(EGifOpen(&bytes, append, &code));
    if (!file) {
        fault = name + ": " + GifErrorString(code);
        return false;
    }
    EGifSetGifVersion(file.get(), true);
    const std::unique_ptr<ColorMapObject, color_map_remover> map(
        GifMakeMapObject(COLORS, colors.colors().data()));
    bool is_good = EGifPutScreenDesc(file.get(), plain[0].width(), plain[0].height(), 8, TRANSPARENT_INDEX,
                                     map.get()) == GIF_OK &&
                   write_repeat(file.get());
    for (const QImage& frame : plain) {
        is_good = is_good && write_frame(file.get(), frame, delay, colors);
    }
    is_good = EGifCloseFile(file.release(), &code) == GIF_OK && is_good;
    if (!is_good) {
        fault = name + ": cannot be made into a movie";
    }
    return is_good && output.write(name, bytes, fault);
}

} // namespace velarion
