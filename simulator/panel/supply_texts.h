#ifndef SUPPLY_TEXTS_H
#define SUPPLY_TEXTS_H

#include "message_text.h"
#include "supplies.h"

namespace velarion {

message_text tray_name(const paper_tray& tray);
message_text paper_kind_name(const paper_tray& tray);
message_text paper_size_name(const paper_tray& tray);
/** @return the picture id of a tray that holds so much */
QString tray_picture(const paper_tray& tray);
QString toner_picture(const toner_bottle& bottle);

} // namespace velarion

#endif
