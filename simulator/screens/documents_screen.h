#ifndef DOCUMENTS_SCREEN_H
#define DOCUMENTS_SCREEN_H

#include "panel_screen.h"

#include <set>

namespace velarion {

class message_label;
class panel_button;
class panel_list;

/** The stored documents: several can be chosen, to be printed or deleted. */
class documents_screen : public panel_screen {
public:
    explicit documents_screen(const panel_context& context);
    message_text title() const override;

private:
    void refresh();
    void choose(int row);
    void choose_all();
    void ask_to_delete();
    void print();

    std::set<int> chosen_; ///< numbers of documents
    panel_list* list_;
    message_label* note_;
    panel_button* all_;
    panel_button* delete_;
    panel_button* print_;
};

} // namespace velarion

#endif
