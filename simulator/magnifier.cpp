#include "magnifier.h"

#include "device.h"

#include <QApplication>
#include <QPainter>

namespace {

/// Several changes of the display within this time make one new picture.
const int RefreshDelay = 10;

}

Magnifier::Magnifier(Device &device, int zoom, QWidget *parent)
    : QWidget(parent),
      m_device(device),
      m_zoom(zoom)
{
    setFixedSize(device.size() * zoom);
    m_refreshTimer.setSingleShot(true);
    connect(&m_refreshTimer, &QTimer::timeout, this, &Magnifier::refresh);
    qApp->installEventFilter(this);
}

void Magnifier::refresh()
{
    m_isRefreshing = true;
    const QImage image = m_device.picture(m_zoom);
    m_isRefreshing = false;
    // Painting the magnifier also paints what lies beneath it, which must not count as a change.
    if (image == m_image)
        return;
    m_image = image;
    update();
}

bool Magnifier::eventFilter(QObject *watched, QEvent *event)
{
    const QEvent::Type type = event->type();
    if (type != QEvent::Paint && type != QEvent::Show && type != QEvent::Hide)
        return false;
    if (!watched->isWidgetType() || !m_device.isAncestorOf(static_cast<QWidget *>(watched)))
        return false;
    // The PC hides and shows its windows; the device's screens know nothing of that.
    if (type != QEvent::Paint)
        return event->spontaneous();
    if (!m_isRefreshing && !m_refreshTimer.isActive())
        m_refreshTimer.start(RefreshDelay);
    return false;
}

void Magnifier::paintEvent(QPaintEvent *)
{
    QPainter(this).drawImage(0, 0, m_image);
}
