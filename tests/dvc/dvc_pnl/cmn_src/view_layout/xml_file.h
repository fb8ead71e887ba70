#ifndef XML_FILE_H
#define XML_FILE_H

#include <string>
#include <vector>

/** An XML file of a test's own, gone with the object. */
class xml_file {
public:
    explicit xml_file(const std::string& contents);
    ~xml_file();
    xml_file(const xml_file&) = delete;
    xml_file& operator=(const xml_file&) = delete;

    const char* path() const { return path_.c_str(); }

private:
    std::string path_;
};

/** @return the lines of the toolkit's debug output since the first call, from which on nobody else gets them
 */
std::vector<std::string>& debug_output();

#endif
