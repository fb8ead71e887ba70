#include "stored_document.h"

namespace velarion {

std::vector<stored_document> first_documents() {
    const auto text = [](const char* name) { return QString::fromUtf8(name); };
    return {
        {1, text("Annual report 2029"), document_kind::SCANNED, 48, 6140, text("2030-04-17")},
        {2, text("Invoice 4711"), document_kind::RECEIVED, 2, 180, text("2030-04-17")},
        {3, text("Übersicht Räume"), document_kind::PRINTED, 5, 920, text("2030-04-16")},
        {4, text("会議資料"), document_kind::SCANNED, 12, 2310, text("2030-04-15")},
        {5, text("Смета"), document_kind::SCANNED, 3, 410, text("2030-04-11")},
        {6, text("הזמנה"), document_kind::RECEIVED, 1, 95, text("2030-04-09")},
        {7, text("Floor plan, second floor, emergency exits and assembly points"), document_kind::PRINTED, 1,
         1480, text("2030-04-02")},
        {8, text("Menu"), document_kind::PRINTED, 2, 260, text("2030-03-28")},
    };
}

} // namespace velarion
