#ifndef FILE_GUARD_H
#define FILE_GUARD_H

namespace velarion {

/**
 * @return whether a pipe, a device or a socket stands at the path, also by way of links: opening or reading
 *         it could wait for ever. Nothing is opened to find out.
 */
bool dvc_pnl_rmg_is_pipe_or_device(const char* path);

/**
 * Tells libraries that a loader may be given from those that would stop it for ever or end the process.
 *
 * An ELF file that is shorter than its program and section headers say makes the loader touch pages that
 * are not there. What does not exist and what is no ELF file is harmless: loaders refuse it by themselves.
 *
 * @return false for an ELF file that is cut short, and for what exists and is no regular file
 */
bool dvc_pnl_rmg_is_safe_to_load(const char* path);

} // namespace velarion

#endif
