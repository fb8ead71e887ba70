#ifndef FILE_GUARD_H
#define FILE_GUARD_H

namespace velarion {

/**
 * Tells pipes, devices and sockets: opening or reading them could wait for ever. Nothing is opened to find
 * out.
 *
 * @param path  links are followed
 * @return false also for a folder and for what is not there
 */
bool is_special_file(const char* path);

/**
 * Tells libraries that a loader may be given from those that would stop it for ever or end the process.
 *
 * An ELF file that is shorter than its program and section headers say makes the loader touch pages that
 * are not there. What does not exist and what is no ELF file is harmless: loaders refuse it by themselves.
 *
 * @return false for an ELF file that is cut short, and for what exists and is no regular file
 */
bool is_safe_to_load(const char* path);

} // namespace velarion

#endif
