#ifndef SETTINGS_TABLES_H
#define SETTINGS_TABLES_H

#include "settings_connection.h"

namespace velarion {

/** Makes the tables in a database that has none. */
platform_code make_tables(settings_connection& connection);

/**
 * Checks that the database is a settings store: of this version, with plain tables and the columns they need,
 * and without triggers.
 *
 * @param is_empty  receives whether nothing was ever stored in it; undefined on failure
 * @return PLATFORM_STORE_DAMAGED when it is something else, or why it cannot be read
 */
platform_code check_tables(settings_connection& connection, bool& is_empty);

/**
 * Checks that the database's pages and indices agree with each other, which a change relies on. Rows with
 * values that do not fit are let through: a change may mend them.
 */
platform_code check_structure(settings_connection& connection);

} // namespace velarion

#endif
