#ifndef SOURCE_WRITER_H
#define SOURCE_WRITER_H

#include <fstream>
#include <string>

/** A text as a C++ string literal, quotation marks included. */
std::string cpp_literal(const std::string& text);

/**
 * Writes a generated file as a whole: it appears under its name only when finish() succeeds.
 */
class source_writer {
public:
    explicit source_writer(const std::string& path);
    ~source_writer();
    source_writer(const source_writer&) = delete;
    source_writer& operator=(const source_writer&) = delete;

    std::ostream& stream() { return file_; }

    /** @param fault  receives the reason when it fails. @return whether the file is in place */
    bool finish(std::string& fault);

private:
    std::string path_;
    std::string temporary_path_;
    std::ofstream file_;
};

#endif
