#ifndef STORED_DOCUMENT_H
#define STORED_DOCUMENT_H

#include <QString>

#include <vector>

namespace velarion {

enum class document_kind { SCANNED, PRINTED, RECEIVED };

/** A document that the machine keeps. */
struct stored_document {
    int number; ///< by which it is known as long as it is there
    QString name;
    document_kind kind;
    int pages;
    int kilobytes;
    QString date; ///< as shown: "2030-04-17"
};

/** Those that the machine has when it is switched on. */
std::vector<stored_document> first_documents();

} // namespace velarion

#endif
