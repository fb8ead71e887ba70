#ifndef XML_FILE_H
#define XML_FILE_H

#include "dvc_pnl_utl_xml_handler_base.h"

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
    /** Cuts the file off. */
    void shrink_to(long size) const;

private:
    std::string path_;
};

/** Writes events down, "<name" for a start and "name>text" for an end, and stops at one when asked to. */
class event_list : public velarion::dvc_pnl_utl_xml_handler_base {
public:
    int dvc_pnl_utl_start_element(const std::string& name) override { return add("<" + name); }
    int dvc_pnl_utl_end_element(const std::string& name, const std::string& text) override {
        return add(name + ">" + text);
    }

    std::vector<std::string> events;
    std::string stop_at; ///< the event that gets another answer than 1
    int stop_answer = 0;

private:
    int add(const std::string& event) {
        events.push_back(event);
        return event == stop_at ? stop_answer : 1;
    }
};

/** Catches the toolkit's debug output while it lives. */
class debug_output {
public:
    debug_output();
    ~debug_output();
    debug_output(const debug_output&) = delete;
    debug_output& operator=(const debug_output&) = delete;

    const std::vector<std::string>& lines() const;
};

#endif
