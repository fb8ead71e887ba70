#ifndef PANEL_PLATFORM_EXPORT_H
#define PANEL_PLATFORM_EXPORT_H

/**
 * Marks what a platform library offers: visible from outside also when it is compiled with hidden
 * visibility.
 */
#if defined(__GNUC__)
#define PANEL_PLATFORM_EXPORT __attribute__((visibility("default")))
#define PANEL_PLATFORM_PRINTF(text, arguments) __attribute__((format(printf, text, arguments)))
#else
#define PANEL_PLATFORM_EXPORT
#define PANEL_PLATFORM_PRINTF(text, arguments)
#endif

#endif
