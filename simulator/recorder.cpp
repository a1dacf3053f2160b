#include "recorder.h"

#include "commandline.h"
#include "device.h"
#include "script.h"

QString titleOfRecord(const QString &name, const QString &screen, KeyMode keyMode, bool rightToLeft)
{
    return QStringLiteral("%1 --screen %2%3%4 --keys @%5")
        .arg(commandName(), screen,
             keyMode == KeyMode::Functions ? QStringLiteral(" --key-mode functions") : QString(),
             rightToLeft ? QStringLiteral(" --right-to-left") : QString(), name);
}

Recorder::Recorder(Device &device)
{
    connect(&device, &Device::keyMoved, this, &Recorder::keyMoved);
}

Recorder::~Recorder()
{
    stop();
}

QString Recorder::start(const QString &name, const QString &title)
{
    stop();
    m_file.setFileName(name);
    if (!m_file.open(QIODevice::WriteOnly | QIODevice::Unbuffered))
        return m_file.errorString();
    m_clock.start();
    m_lastTime = 0;
    m_error.clear();
    m_file.write(QStringLiteral("// %1\n").arg(title).toUtf8());
    emit recordingChanged(true);
    return QString();
}

QString Recorder::stop()
{
    if (!isRecording())
        return QString();
    writePress();
    m_file.close();
    emit recordingChanged(false);
    return m_error;
}

void Recorder::keyMoved(int key, KeyMove move)
{
    if (!isRecording())
        return;
    if (move == KeyMove::Release && key == m_pressedKey) {
        m_pressedKey = 0;
        return write(key, "", m_pressTime);
    }
    writePress();
    const qint64 now = m_clock.elapsed();
    switch (move) {
    case KeyMove::Press:
        m_pressedKey = key;
        m_pressTime = now;
        return;
    case KeyMove::Repeat: return write(key, ":repeat", now);
    case KeyMove::Release: return write(key, ":release", now);
    case KeyMove::Forget: return write(key, ":forget", now);
    }
}

void Recorder::writePress()
{
    if (m_pressedKey == 0)
        return;
    write(m_pressedKey, ":press", m_pressTime);
    m_pressedKey = 0;
}

void Recorder::write(int key, const char *part, qint64 time)
{
    QString line;
    for (qint64 wait = time - m_lastTime; wait > 0; wait -= LongestScriptWait)
        line += QStringLiteral("wait:%1 ").arg(qMin<qint64>(wait, LongestScriptWait));
    m_lastTime = time;
    line += keyName(key) + QLatin1String(part) + QLatin1Char('\n');
    // At once, so that nothing is lost whatever happens to the simulator.
    const QByteArray bytes = line.toUtf8();
    if (m_file.write(bytes) != bytes.size() && m_error.isEmpty())
        m_error = m_file.errorString();
}
