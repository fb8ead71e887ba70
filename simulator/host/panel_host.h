#ifndef PANEL_HOST_H
#define PANEL_HOST_H

namespace velarion {

/**
 * The library in this process, from its start to its end. Make it after the application and before the first
 * widget; destroy it after the last one.
 */
class panel_host {
public:
    /** Creates the language resource, makes its fonts known to the toolkit, creates the image manager and
     * preloads. */
    panel_host();
    /** Deletes both instances. */
    ~panel_host();

    /** Deletes the image manager and creates it anew: it knows no picture from before. */
    void start_images_anew();
    /** The same for the language resource, which reads slots and packs; its selections are those of the
     * settings. */
    void start_languages_anew();

    panel_host(const panel_host&) = delete;
    panel_host& operator=(const panel_host&) = delete;
};

} // namespace velarion

#endif
