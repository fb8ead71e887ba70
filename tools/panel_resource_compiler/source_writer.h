#ifndef SOURCE_WRITER_H
#define SOURCE_WRITER_H

#include <sstream>
#include <string>

namespace velarion {

/** A text as a C++ string literal, quotation marks included. */
std::string cpp_literal(const std::string& text);

/** Writes a generated file, which appears under its name as a whole when finish() succeeds. */
class source_writer {
public:
    /** @param folder  as of output_folder; @param name  of the file in it */
    source_writer(const std::string& folder, const std::string& name)
        : folder_(folder)
        , name_(name) {}

    std::ostream& stream() { return contents_; }

    /** @param fault  receives the reason when it fails. @return whether the file is in place */
    bool finish(std::string& fault) const;

private:
    std::string folder_;
    std::string name_;
    std::ostringstream contents_;
};

} // namespace velarion

#endif
