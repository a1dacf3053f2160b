#ifndef POINTER_H
#define POINTER_H

#include <QWidget>

class DeviceWindow;

/// Lies over the display: tells which widget of the device the mouse is at, and draws a frame around one.
///
/// It is no child of the device's window, so that no picture of that has the frame.
class Pointer : public QWidget
{
    Q_OBJECT

public:
    Pointer(DeviceWindow &window, QWidget *parent);

    /// Draws the frame around \a widget, which is one of the device's; null for none.
    void frame(QWidget *widget);

Q_SIGNALS:
    /// The mouse is at \a widget, until it has been clicked: then the next click counts.
    void pointed(QWidget *widget);

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;
    void mouseMoveEvent(QMouseEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;
    void paintEvent(QPaintEvent *event) override;
    void showEvent(QShowEvent *event) override;

private:
    void place();
    QWidget *widgetAt(const QPoint &place) const;

    DeviceWindow &m_window;
    QRect m_frame;
    bool m_isFixed = false;
};

#endif
