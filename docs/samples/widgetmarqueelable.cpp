#include "samples.h"

#include "widgetmarqueelable.h"

#include <QCoreApplication>
#include <QTimerEvent>

/// Three events of the timer, and no more.
static void passThreeIntervals(WidgetMarqueeLable *label)
{
    for (int i = 0; i < 3; ++i) {
        QTimerEvent event(label->m_timerId);
        QCoreApplication::sendEvent(label, &event);
    }
    label->killTimer(label->m_timerId);
}

SAMPLE(widgetmarqueelable_at_rest, 220, 24, Paper)
{
    //! [widgetmarqueelable_at_rest]
    WidgetMarqueeLable *label = new WidgetMarqueeLable(screen);
    label->setGeometry(10, 0, 120, 24);
    label->setText("Evening concert");
    //! [widgetmarqueelable_at_rest]
}

SAMPLE(widgetmarqueelable_turned, 220, 24, Paper)
{
    //! [widgetmarqueelable_turned]
    WidgetMarqueeLable *label = new WidgetMarqueeLable(screen);
    label->setGeometry(10, 0, 120, 24);
    label->m_marqueeText = "Evening concert  ";
    label->m_timerId = label->startTimer(200);
    //! [widgetmarqueelable_turned]
    passThreeIntervals(label);
}
