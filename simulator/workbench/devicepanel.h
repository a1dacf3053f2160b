#ifndef DEVICEPANEL_H
#define DEVICEPANEL_H

#include "keys.h"
#include "screen.h"

#include <QWidget>

class Device;
class QListWidget;
class QRadioButton;

/// What kind of device it is: its direction keys, its writing direction, and the screen that it starts with.
class DevicePanel : public QWidget
{
    Q_OBJECT

public:
    DevicePanel(Device &device, const QString &firstScreen, QWidget *parent = nullptr);

    void setKeyMode(KeyMode mode);

    /// Takes effect on the screens that open from then on.
    void setRightToLeft(bool rightToLeft);

    QString firstScreen() const;

    /// Starts the device anew, with its first screen.
    void restart();

Q_SIGNALS:
    void keyModeChanged(KeyMode mode);
    void rightToLeftChanged(bool rightToLeft);

private:
    Device &m_device;
    QRadioButton *m_digits;
    QRadioButton *m_functions;
    QRadioButton *m_leftToRight;
    QRadioButton *m_rightToLeft;
    QListWidget *m_screens;
};

#endif
