#include "formlabels.h"

#include "formlook.h"

FormMarqueeLable::FormMarqueeLable(QWidget *parent)
    : WidgetMarqueeLable(parent),
      m_interval(0),
      m_hasText(false)
{
    m_timerId = 0;
}

void FormMarqueeLable::setInterval(int interval)
{
    m_interval = interval;
    if (FormLook::designing)
        return;
    if (m_timerId != 0)
        killTimer(m_timerId);
    m_timerId = interval > 0 ? startTimer(interval) : 0;
    m_offset = 0;
    m_hasText = false;
}

QSize FormMarqueeLable::sizeHint() const
{
    return WidgetMarqueeLable::sizeHint().expandedTo(QSize(160, 20));
}

void FormMarqueeLable::timerEvent(QTimerEvent *event)
{
    // Not sooner: a form sets the text after the interval.
    if (!m_hasText) {
        m_marqueeText = text();
        m_hasText = true;
    }
    WidgetMarqueeLable::timerEvent(event);
}

FormProgressBar::FormProgressBar(QWidget *parent)
    : WidgetProgressBar(parent),
      m_used(0),
      m_capacity(100)
{
    FormLook::paintBackground(this);
    setItemUseMaxValue(m_used, m_capacity);
}

void FormProgressBar::setTitle(const QString &title)
{
    m_title = title;
    setItemTitle(title);
}

void FormProgressBar::setUsed(int used)
{
    m_used = used;
    setItemUseMaxValue(m_used, m_capacity);
}

void FormProgressBar::setCapacity(int capacity)
{
    m_capacity = capacity;
    setItemUseMaxValue(m_used, m_capacity);
}
