#include "pointer.h"

#include "devicewindow.h"

#include <QMouseEvent>
#include <QPainter>

namespace {

const QColor FrameColor(0x00, 0x78, 0xd7);
const QColor Tint(0x00, 0x78, 0xd7, 40);

/// The visible widget in front at \a place, in the coordinates of \a widget, at last \a widget itself.
QWidget *frontWidget(QWidget *widget, const QPoint &place)
{
    const QObjectList &children = widget->children();
    for (auto it = children.rbegin(); it != children.rend(); ++it) {
        if (!(*it)->isWidgetType())
            continue;
        QWidget *child = static_cast<QWidget *>(*it);
        if (child->isVisible() && child->geometry().contains(place))
            return frontWidget(child, place - child->pos());
    }
    return widget;
}

}

Pointer::Pointer(DeviceWindow &window, QWidget *parent)
    : QWidget(parent),
      m_window(window)
{
    setMouseTracking(true);
    setCursor(Qt::CrossCursor);
    hide();
    m_window.installEventFilter(this);
    place();
}

void Pointer::place()
{
    setGeometry(m_window.display().translated(m_window.pos()));
}

bool Pointer::eventFilter(QObject *, QEvent *event)
{
    if (event->type() == QEvent::Move)
        place();
    return false;
}

void Pointer::frame(QWidget *widget)
{
    QRect frame;
    if (widget && widget->isVisible() && m_window.device().isAncestorOf(widget)) {
        const QPoint corner = widget->mapTo(&m_window.device(), QPoint(0, 0));
        frame = QRect(corner * m_window.zoom(), widget->size() * m_window.zoom());
    }
    if (frame == m_frame)
        return;
    m_frame = frame;
    update();
}

QWidget *Pointer::widgetAt(const QPoint &place) const
{
    const QPoint pixel(place.x() / m_window.zoom(), place.y() / m_window.zoom());
    QWidget *widget = frontWidget(&m_window.device(), pixel);
    return widget == &m_window.device() ? nullptr : widget;
}

void Pointer::mouseMoveEvent(QMouseEvent *event)
{
    if (!m_isFixed)
        emit pointed(widgetAt(event->pos()));
}

void Pointer::mousePressEvent(QMouseEvent *event)
{
    m_isFixed = !m_isFixed;
    emit pointed(widgetAt(event->pos()));
}

void Pointer::paintEvent(QPaintEvent *)
{
    if (m_frame.isEmpty())
        return;
    QPainter painter(this);
    painter.fillRect(m_frame, Tint);
    painter.setPen(QPen(FrameColor, 2, Qt::SolidLine, Qt::SquareCap, Qt::MiterJoin));
    painter.drawRect(QRectF(m_frame).adjusted(1, 1, -1, -1));
}

void Pointer::showEvent(QShowEvent *event)
{
    m_isFixed = false;
    raise();
    QWidget::showEvent(event);
}
