#ifndef MAGNIFIER_H
#define MAGNIFIER_H

#include <QImage>
#include <QTimer>
#include <QWidget>

class Device;

/// The glass in front of the device's display: shows each of its pixels as a square of \a zoom by \a zoom.
///
/// The display itself lies behind the glass in its own size, where it has the focus and is as visible to its screens as
/// on the device.
class Magnifier : public QWidget
{
public:
    Magnifier(Device &device, int zoom, QWidget *parent);

    /// Takes over what the display shows now.
    void refresh();

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;
    void paintEvent(QPaintEvent *event) override;

private:
    Device &m_device;
    const int m_zoom;
    QImage m_image;
    QTimer m_refreshTimer;
    bool m_isRefreshing = false;
};

#endif
