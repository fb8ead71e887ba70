#ifndef DVC_PNL_EXPORT_H
#define DVC_PNL_EXPORT_H

/** Marks what the library offers its host; everything else is hidden. */
#if defined(__GNUC__)
#define DVC_PNL_EXPORT __attribute__((visibility("default")))
#else
#define DVC_PNL_EXPORT
#endif

#endif
