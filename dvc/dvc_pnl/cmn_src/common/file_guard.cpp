#include "file_guard.h"

#include <sys/stat.h>

#include <cstdint>
#include <cstdio>
#include <cstring>
#include <memory>

namespace velarion {

namespace {

using FILE_POINTER = std::unique_ptr<FILE, int (*)(FILE*)>;

/** Where a record of a header table keeps what it says about the file; sections such as .bss have no bytes.
 */
struct record_layout {
    std::size_t size;
    std::size_t type;
    std::size_t offset;
    std::size_t length;
    std::uint64_t type_without_bytes;
};

/** Where an ELF file keeps its headers; the four 16-bit sizes and counts follow each other. */
struct elf_layout {
    std::size_t header_size;
    std::size_t word; ///< bytes of an offset
    std::size_t segment_table;
    std::size_t section_table;
    std::size_t counts;
    record_layout segment;
    record_layout section;
};

constexpr elf_layout ELF_32 = {52, 4, 28, 32, 42, {32, 0, 4, 16, 0}, {40, 4, 16, 20, 8}};
constexpr elf_layout ELF_64 = {64, 8, 32, 40, 54, {56, 0, 8, 32, 0}, {64, 4, 24, 32, 8}};

constexpr unsigned char ELF_MAGIC[] = {0x7F, 'E', 'L', 'F'};
constexpr std::size_t IDENTITY_SIZE = 16;
constexpr std::size_t CLASS = 4;
constexpr std::size_t BYTE_ORDER_MARK = 5;
constexpr unsigned char CLASS_32 = 1;
constexpr unsigned char CLASS_64 = 2;
constexpr unsigned char BIG_ENDIAN_MARK = 2;
constexpr std::size_t COUNT_WIDTH = 2;
constexpr std::size_t TYPE_WIDTH = 4;
constexpr std::uint64_t UNUSED_TYPE = 0;

/** An ELF file and how much of it there is. */
class elf_file {
public:
    elf_file(FILE* file, std::uint64_t size)
        : file_(file)
        , size_(size) {}

    /** @return whether everything that the headers name lies in the file, or it is no ELF file */
    bool is_whole() {
        unsigned char header[ELF_64.header_size] = {};
        if (!read(0, header, IDENTITY_SIZE) || std::memcmp(header, ELF_MAGIC, sizeof ELF_MAGIC) != 0 ||
            (header[CLASS] != CLASS_32 && header[CLASS] != CLASS_64)) {
            return true;
        }
        const elf_layout& layout = header[CLASS] == CLASS_32 ? ELF_32 : ELF_64;
        is_big_endian_ = header[BYTE_ORDER_MARK] == BIG_ENDIAN_MARK;
        if (!read(0, header, layout.header_size)) {
            return false;
        }
        const unsigned char* counts = header + layout.counts;
        const table segments = {number(header + layout.segment_table, layout.word),
                                number(counts, COUNT_WIDTH), number(counts + COUNT_WIDTH, COUNT_WIDTH)};
        table sections = {number(header + layout.section_table, layout.word),
                          number(counts + 2 * COUNT_WIDTH, COUNT_WIDTH),
                          number(counts + 3 * COUNT_WIDTH, COUNT_WIDTH)};
        return has_records(segments, layout.segment, layout.word) && has_section_count(sections, layout) &&
               has_records(sections, layout.section, layout.word);
    }

private:
    struct table {
        std::uint64_t offset;
        std::uint64_t record_size;
        std::uint64_t count;
    };

    std::uint64_t number(const unsigned char* bytes, std::size_t width) const {
        std::uint64_t value = 0;
        for (std::size_t i = 0; i < width; ++i) {
            value = value << 8U | bytes[is_big_endian_ ? i : width - 1 - i];
        }
        return value;
    }

    bool holds(std::uint64_t offset, std::uint64_t length) const {
        return offset <= size_ && length <= size_ - offset;
    }

    bool read(std::uint64_t offset, unsigned char* bytes, std::size_t count) {
        return holds(offset, count) && fseeko(file_, static_cast<off_t>(offset), SEEK_SET) == 0 &&
               std::fread(bytes, 1, count, file_) == count;
    }

    /** A count beyond 16 bits stands in the first section. */
    bool has_section_count(table& sections, const elf_layout& layout) {
        unsigned char first[ELF_64.section.size] = {};
        if (sections.offset == 0 || sections.count != 0) {
            return true;
        }
        if (!read(sections.offset, first, layout.section.size)) {
            return false;
        }
        sections.count = number(first + layout.section.length, layout.word);
        return true;
    }

    bool has_records(const table& records, const record_layout& layout, std::size_t word) {
        if (records.count == 0) {
            return true;
        }
        if (records.record_size < layout.size || !holds(records.offset, 0) ||
            records.count > (size_ - records.offset) / records.record_size) {
            return false;
        }
        for (std::uint64_t i = 0; i < records.count; ++i) {
            unsigned char record[ELF_64.section.size] = {};
            if (!read(records.offset + i * records.record_size, record, layout.size)) {
                return false;
            }
            const std::uint64_t type = number(record + layout.type, TYPE_WIDTH);
            const bool has_bytes = type != UNUSED_TYPE && type != layout.type_without_bytes;
            if (has_bytes &&
                !holds(number(record + layout.offset, word), number(record + layout.length, word))) {
                return false;
            }
        }
        return true;
    }

    FILE* file_;
    std::uint64_t size_;
    bool is_big_endian_ = false;
};

} // namespace

bool is_special_file(const char* path) {
    struct stat status;
    return stat(path, &status) == 0 && !S_ISREG(status.st_mode) && !S_ISDIR(status.st_mode);
}

bool is_safe_to_load(const char* path) {
    struct stat status;
    if (stat(path, &status) != 0) {
        return true;
    }
    if (!S_ISREG(status.st_mode)) {
        return false;
    }
    const FILE_POINTER file(std::fopen(path, "r"), std::fclose);
    return !file || elf_file(file.get(), static_cast<std::uint64_t>(status.st_size)).is_whole();
}

} // namespace velarion
