#ifndef BOARDKEYS_H
#define BOARDKEYS_H

#include <QObject>
#include <QStringList>

/// The keys of a board: reads Linux input devices and gives their keys to the widget that has the focus, as the toolkit
/// gives those of a keyboard. For boards whose toolkit does not know their keys; where it reads the same devices itself
/// every key would come twice, so say "input_grab = yes" in the configuration, or have the toolkit read none (Qt 4.8:
/// QWS_KEYBOARD=none; Qt 5 and 6 with linuxfb or eglfs: QT_QPA_FB_DISABLE_INPUT=1, QT_QPA_EGLFS_DISABLE_INPUT=1).
///
/// One object in the thread of the screens, made after the QApplication, reads all devices that match a line "input" of
/// the configuration (without such lines /dev/input/event*) and have a key of the table. Which key is which, also without
/// a word about it, is in platform/linux/board.conf; a line "key." with an unknown name is ignored and logged at level 2
/// with its number.
///
/// A key is one QEvent::KeyPress; while it is held, more of them with isAutoRepeat(), the first "key_repeat_delay_ms"
/// later and then one each "key_repeat_period_ms"; and one QEvent::KeyRelease. Only the key that was pressed last repeats.
/// Before a repeat the devices are read, so that a key that was let go does not repeat, however slow the screen is. Two
/// keys that are the same one in the table, also of two devices, are one key that is held until both are let go. A key
/// that is already held when its device is opened counts from its next press on. There are no modifiers. Where the
/// toolkit would look for a shortcut before, nobody does.
///
/// The event goes to the widget that has grabbed the keyboard, else to the popup that is open, else to the focus widget,
/// else to the active window; where there is none it is dropped. A handler may delete this object.
///
/// Devices that come later are read too, and one that goes lets go of the keys that were held on it: what the kernel
/// tells about the directories of the patterns is followed, and where it cannot tell, or a device cannot be opened, there
/// is another look each "input_scan_ms". Where the kernel has lost events, as while the process was stopped, the keys are
/// compared with what is held on the device: none stays held, and what was pressed and let go in between is lost.
///
/// In the log: at level 2 a device that cannot be opened, once until the reason is another one, and not before that has
/// lasted for "input_scan_ms", as nodes that come get their rights a moment later; one that cannot be grabbed (it is read
/// all the same); and once that no device is there at the start. At level 16 a device that is read and one that is gone:
/// "[keys] /dev/input/event0: gpio-keys is read".
///
/// Built without libevdev it reads nothing, which is logged at level 2.
namespace Board {

class Keys : public QObject
{
public:
    explicit Keys(QObject *parent = 0);
    ~Keys();

    /// The paths of the devices that are read.
    QStringList devices() const;

protected:
    bool event(QEvent *event);

private:
    Keys(const Keys &);
    Keys &operator=(const Keys &);

    class Reader;

    Reader *m_reader;
};

}

#endif
