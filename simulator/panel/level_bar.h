#ifndef LEVEL_BAR_H
#define LEVEL_BAR_H

#include <QWidget>

namespace velarion {

/** Steps that rise to the end of the line, those up to a level lit. */
class level_bar : public QWidget {
public:
    /** @param most  the highest level */
    explicit level_bar(int most);

    void set_level(int level);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    int most_;
    int level_ = 0;
};

} // namespace velarion

#endif
