#ifndef PAPER_JAM_H
#define PAPER_JAM_H

#include <QString>

#include <vector>

namespace velarion {

/** A place where paper jams, and what leads the user to it. */
struct jam_place {
    const char* name;               ///< "tray2": for scripts
    const char* message;            ///< id: "Paper jam in tray 2"
    const char* movie;              ///< picture id: all steps in turn
    std::vector<const char*> steps; ///< picture ids, in the order in which they are done
};

const std::vector<jam_place>& jam_places();

/** @return null when there is no place of the name */
const jam_place* find_jam_place(const QString& name);

/** Paper that is jammed, and how far the user is in removing it. */
struct paper_jam {
    const jam_place* place;
    int step = 0; ///< that is to be done next, 0 the first
};

} // namespace velarion

#endif
