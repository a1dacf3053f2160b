#ifndef PLAYER_H
#define PLAYER_H

#include "script.h"

#include <QTimer>

/// Works the keys of a device while the event loop runs, with no other pauses than the waits of the script, until that
/// has come to its end or is stopped.
class Player : public QObject
{
    Q_OBJECT

public:
    explicit Player(Device &device);

    /// Starts \a script, in place of one that is under way.
    void start(const Script &script);

    /// Stops after the key that is being worked.
    void stop();

    bool isPlaying() const { return m_isPlaying; }

Q_SIGNALS:
    /// After the last step, or after stop().
    void finished();

private:
    void workNext();

    Device &m_device;
    Script m_script;
    std::size_t m_next = 0;
    bool m_isPlaying = false;
    bool m_isWorking = false;  // in an event loop of its own, between the parts of a key
    QTimer m_timer;
};

#endif
