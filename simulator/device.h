#ifndef DEVICE_H
#define DEVICE_H

#include "keys.h"
#include "screen.h"

#include <QEvent>
#include <QPointer>
#include <QSet>
#include <QWidget>

#include <memory>
#include <vector>

class Message;

/// The device: a display of 220 by 176 pixels on which screens stand on top of each other, and keys that reach the
/// screen on top.
class Device : public QWidget
{
    Q_OBJECT

public:
    static constexpr int Width = 220;
    static constexpr int Height = 176;

    /// A device with \a screens, of which none is open yet; they must stay where they are.
    Device(const Screens &screens, KeyMode keyMode, QWidget *parent);

    // For the screens.

    /// Opens the screen \a name on top of the others. Those stay as they are, in focus and rows.
    void open(const QString &name);

    /// Opens \a screen, a child of the device, in the same way: one that needs to be told something, or has something
    /// to tell. Its messages show in place of the bar at its top, which is \a barHeight high.
    void push(QWidget *screen, int barHeight = Screen::TitleBarHeight);

    /// Closes the screen on top and returns to the one below, at the row that had the focus. The first screen stays.
    /// A screen may call this from anywhere: it is deleted later.
    void back();

    /// Closes all screens and starts with the screen \a name.
    void start(const QString &name);

    /// Shows a few words in place of the bar at the top, for two seconds or up to the next key.
    void showMessage(const QString &text);

    const Screens &screens() const { return m_screens; }

    KeyMode keyMode() const { return m_keyMode; }

    /// Owns what screens keep from one opening to the next: up to the next start().
    QObject *memory() const { return m_memory.get(); }

    // For those who work the keys.

    void setKeyMode(KeyMode keyMode) { m_keyMode = keyMode; }

    /// What a finger does to \a key, one of the device's own (see deviceKey()): a press, repeats while it stays down,
    /// and one release, whoever is working the keys. Repeats and releases of a key that is not down are ignored.
    void press(int key);
    void repeat(int key);
    void release(int key);

    /// Forgets \a key, or all keys, that are down, without releases.
    void forget(int key);
    void forgetKeys();

    /// The display as it is now, magnified \a zoom times.
    QImage picture(int zoom);

Q_SIGNALS:
    /// Comes before a screen gets to know of it.
    void keyMoved(int key, KeyMove move);

protected:
    void keyPressEvent(QKeyEvent *event) override;
    void keyReleaseEvent(QKeyEvent *event) override;

private:
    struct OpenScreen
    {
        QWidget *widget;
        QPointer<QWidget> lastFocus;
        int barHeight;
    };

    void closeTop();
    void send(QEvent::Type type, int key, bool isRepeat);
    QWidget *keyReceiver();
    void setKeyModeOfWidgets();

    const Screens &m_screens;
    KeyMode m_keyMode;
    std::unique_ptr<QObject> m_memory;
    std::vector<OpenScreen> m_openScreens;
    QSet<int> m_keysDown;
    Message *m_message;
};

#endif
