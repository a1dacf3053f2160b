#include "widgetmarqueelable.h"

#include "widgetdetails.h"

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
    ++m_offset;
    if (length > 0)
        m_offset %= length;
    setText(turnedText(m_marqueeText, m_offset));
}
