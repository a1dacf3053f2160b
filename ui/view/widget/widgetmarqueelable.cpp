#include "widgetmarqueelable.h"

#include "widgetdetails.h"

#include <climits>

WidgetMarqueeLable::WidgetMarqueeLable(QWidget *parent)
    : QLabel(parent),
      m_timerId(0),
      m_offset(0)
{
}

WidgetMarqueeLable::~WidgetMarqueeLable()
{
}

void WidgetMarqueeLable::timerEvent(QTimerEvent *)
{
    const int length = int(m_marqueeText.length());
    const qint64 next = qint64(m_offset) + 1;
    m_offset = int(length > 0 ? next % length : qMin(next, qint64(INT_MAX)));
    setText(turnedText(m_marqueeText, m_offset));
}
