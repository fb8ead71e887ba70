#ifndef XML_FILE_H
#define XML_FILE_H

#include "scratch_folder.h"

#include <string>
#include <vector>

/** An XML file of a test's own, gone with the object. */
class xml_file {
public:
    explicit xml_file(const std::string& contents) { scratch_.write("file.xml", contents); }

    const char* path() const { return path_.c_str(); }

private:
    const scratch_folder scratch_;
    const std::string path_ = scratch_.path("file.xml");
};

/** @return the lines of the toolkit's debug output since the first call, from which on nobody else gets them
 */
std::vector<std::string>& debug_output();

#endif
