#ifndef CLOCKSCREEN_H
#define CLOCKSCREEN_H

#include "widgetclock.h"

class WidgetDate;

/// Time and date. Escape leaves it.
class ClockScreen : public Widget
{
    Q_OBJECT

public:
    ClockScreen(QWidget *parent, WidgetClock::Format hours);
    virtual ~ClockScreen();

protected:
    virtual void keyReleaseEvent(QKeyEvent *event);

private:
    WidgetClock *m_clock;
    WidgetDate *m_date;
};

#endif
