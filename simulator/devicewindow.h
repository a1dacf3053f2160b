#ifndef DEVICEWINDOW_H
#define DEVICEWINDOW_H

#include "device.h"
#include "keybutton.h"
#include "magnifier.h"

#include <QHash>
#include <QList>
#include <QTimer>
#include <QWidget>

class QKeyEvent;

/// The device as a person sees it: its body with the magnified display and the keys.
///
/// The PC's keyboard works the device's keys as long as the window has it, and no menu.
class DeviceWindow : public QWidget
{
public:
    /// The window of a device with \a screens, which must stay where they are.
    DeviceWindow(const Screens &screens, KeyMode keyMode, int zoom);

    Device &device() { return m_device; }
    int zoom() const { return m_zoom; }

    /// Where the magnified display is.
    QRect display() const { return m_magnifier.geometry(); }

    /// Shows the window, its own or the one that it is part of, and makes it the active one, so that the focus works,
    /// also where nothing activates windows.
    void showActive();

    /// The whole device as it is now.
    QImage picture();

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;
    bool event(QEvent *event) override;
    void paintEvent(QPaintEvent *event) override;

private:
    void placeDisplay();
    void placeFunctionKeys();
    void placeKeypad();
    void addKey(const KeyButton::Face &face, const QString &letters, const QRect &rect);
    int keyOf(QKeyEvent *event);
    void handlePress(int key, QKeyEvent *event);
    void handleRelease(int key, QKeyEvent *event);
    void releaseAtLast();

    const int m_zoom;
    Device m_device;
    Magnifier m_magnifier;
    QList<KeyButton *> m_keys;
    QTimer m_releaseTimer;
    int m_releasedKey = 0;
    quint64 m_releaseTime = 0;
    QRect m_bezel;
    QRect m_functionKeys;
    QRect m_keypad;
    QHash<quint32, int> m_keyOfScanCode;  // which key of the device each key of the PC was when it went down
};

#endif
