#ifndef OFFSCREEN_APPLICATION_H
#define OFFSCREEN_APPLICATION_H

#include <memory>

class QGuiApplication;

namespace velarion {

/** A toolkit that draws without a screen, for as long as it lives. */
class offscreen_application {
public:
    offscreen_application();
    ~offscreen_application();

private:
    std::unique_ptr<QGuiApplication> application_;
};

} // namespace velarion

#endif
