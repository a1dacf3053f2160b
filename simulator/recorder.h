#ifndef RECORDER_H
#define RECORDER_H

#include "keys.h"

#include <QElapsedTimer>
#include <QFile>
#include <QObject>

class Device;

/// The title of a record in the file \a name: how to start the simulator so that a device which begins with \a screen is
/// worked again in the same way.
QString titleOfRecord(const QString &name, const QString &screen, KeyMode keyMode, bool rightToLeft);

/// Writes what is done to a device's keys as a script (see script.h), with the time between, while it is done.
///
/// A key that goes down and comes up with nothing between is one word, and the time that it was down is part of the wait
/// after it. One that repeats, or overlaps with another, is written part by part.
class Recorder : public QObject
{
    Q_OBJECT

public:
    explicit Recorder(Device &device);
    ~Recorder() override;

    /// Begins a record in the file \a name, in place of what is there, with \a title for people. Returns what is wrong
    /// with the file, or nothing.
    QString start(const QString &name, const QString &title);

    /// Ends the record. Returns what went wrong with the file since the start, or nothing.
    QString stop();

    bool isRecording() const { return m_file.isOpen(); }
    QString fileName() const { return m_file.fileName(); }

Q_SIGNALS:
    void recordingChanged(bool isRecording);

private:
    void keyMoved(int key, KeyMove move);
    void writePress();
    void write(int key, const char *part, qint64 time);

    QFile m_file;
    QString m_error;
    QElapsedTimer m_clock;
    qint64 m_lastTime = 0;
    int m_pressedKey = 0;  // one of which only the press has been seen, and not written yet
    qint64 m_pressTime = 0;
};

#endif
