#ifndef LINUXDEVICES_H
#define LINUXDEVICES_H

#include "waiting.h"

#include <QDir>
#include <QFile>
#include <QMap>
#include <QProcess>
#include <QProcessEnvironment>
#include <QStringList>
#include <QTemporaryDir>
#include <QtTest>

#include <cstddef>
#include <fcntl.h>
#include <linux/input.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/un.h>
#include <unistd.h>

/// Devices for a program that is tested: FIFOs in a directory, which linuxdevices.cpp makes answer as the kernel's devices
/// do. What a device has is said in a file of its name in state/; what it was asked comes into the file "requests".
///
///     watchdog*  state "seconds 60" has that time whatever is asked for, "refuse" none that can be set
///     rtc*       state "2031-05-06 07:08:09" or "now"; without a state it cannot be read. Open only once at a time: a file
///                that is locked (flock) is open elsewhere, which is a request "rtc taken". A state "taken" says how many
///                openings find it so anyhow, a state "interrupt" has the first reading fail for a signal
///     event*     state "keys 2 28" has these codes, "held 28" the ones that are held, "name x", "refuse" cannot be grabbed,
///                "number 64" has that number as the kernel's devices have one, and "inode 7" a node that is that file
///
/// There is no syslog but the one that a test makes. The system time is never set: that is a request "clock_settime
/// <seconds>", refused where there is a state "clock".
class DeviceDirectory
{
public:
    DeviceDirectory()
    {
        // For children with fewer rights, too.
        chmod(m_directory.path().toLocal8Bit().constData(), 0755);
        QDir(m_directory.path()).mkdir("state");
    }

    QString path(const QString &name) const { return m_directory.filePath(name); }

    void write(const QString &name, const QByteArray &text) const
    {
        QFile file(path(name));
        if (!file.open(QIODevice::WriteOnly | QIODevice::Truncate) || file.write(text) != text.size())
            qFatal("A file cannot be written");
    }

    void setState(const QString &device, const QByteArray &text) const
    {
        // At once, as the device may be asked meanwhile.
        write("state/." + device, text);
        QFile::remove(path("state/" + device));
        QFile::rename(path("state/." + device), path("state/" + device));
    }

    QStringList requests() const
    {
        QFile file(path("requests"));
        if (!file.open(QIODevice::ReadOnly))
            return QStringList();
        QStringList lines = QString::fromLocal8Bit(file.readAll()).split('\n');
        lines.removeLast();
        return lines;
    }

private:
    QTemporaryDir m_directory;
};

/// A FIFO for both ends, whose other side is the program that is tested. Nothing it does waits.
class Fifo
{
public:
    explicit Fifo(const QString &path, mode_t mode = 0600)
        : m_path(path)
    {
        if (mkfifo(path.toLocal8Bit().constData(), 0600) != 0)
            qFatal("No FIFO can be made");
        m_descriptor = ::open(path.toLocal8Bit().constData(), O_RDWR | O_NONBLOCK | O_CLOEXEC);
        if (mode != 0600)
            chmod(path.toLocal8Bit().constData(), mode);
    }

    ~Fifo()
    {
        close();
        QFile::remove(m_path);
    }

    void close()
    {
        if (m_descriptor >= 0)
            ::close(m_descriptor);
        m_descriptor = -1;
    }

    /// As much as it takes.
    void fill()
    {
        const char byte = 'x';
        while (::write(m_descriptor, &byte, 1) == 1) {
        }
    }

    void write(const void *data, std::size_t size)
    {
        if (::write(m_descriptor, data, size) != ssize_t(size))
            qFatal("A FIFO does not take what is written");
    }

    /// What is there by now.
    QByteArray readAll()
    {
        QByteArray all;
        char bytes[4096];
        for (;;) {
            const ssize_t length = ::read(m_descriptor, bytes, sizeof(bytes));
            if (length <= 0)
                return all;
            all.append(bytes, int(length));
        }
    }

private:
    QString m_path;
    int m_descriptor;
};

/// An input device: a FIFO with the kernel's own events.
class InputDevice
{
public:
    InputDevice(const DeviceDirectory &directory, const QString &name, const QByteArray &state, mode_t mode = 0600)
        : m_directory(directory),
          m_name(name)
    {
        directory.setState(name, state);
        m_fifo.reset(new Fifo(directory.path(name), mode));
    }

    void event(int type, int code, int value)
    {
        input_event event = {};
        event.type = __u16(type);
        event.code = __u16(code);
        event.value = value;
        m_fifo->write(&event, sizeof(event));
    }

    void key(int code, int value)
    {
        event(EV_KEY, code, value);
        event(EV_SYN, SYN_REPORT, 0);
    }

    void press(int code) { key(code, 1); }
    void release(int code) { key(code, 0); }

    /// The kernel's buffer has run over, and \a state is how the device stands now.
    void drop(const QByteArray &state)
    {
        m_directory.setState(m_name, state);
        event(EV_SYN, SYN_DROPPED, 0);
        event(EV_SYN, SYN_REPORT, 0);
    }

    /// The device goes, with its node.
    void unplug() { m_fifo.reset(); }

    /// The device goes and its node stays.
    void fail() { m_fifo->close(); }

private:
    const DeviceDirectory &m_directory;
    QString m_name;
    QScopedPointer<Fifo> m_fifo;
};

/// Takes the place of a service that gets messages, such as syslog and systemd.
class MessageSocket
{
public:
    /// At \a path, or where that starts with @ at a name that is no file.
    explicit MessageSocket(const QString &path)
        : m_path(path)
    {
        sockaddr_un address = {};
        address.sun_family = AF_UNIX;
        const QByteArray name = path.toLocal8Bit();
        if (std::size_t(name.size()) >= sizeof(address.sun_path))
            qFatal("The directory for temporary files has too long a name");
        memcpy(address.sun_path, name.constData(), std::size_t(name.size()));
        if (name.startsWith('@'))
            address.sun_path[0] = '\0';
        m_socket = socket(AF_UNIX, SOCK_DGRAM | SOCK_NONBLOCK | SOCK_CLOEXEC, 0);
        const socklen_t length = socklen_t(offsetof(sockaddr_un, sun_path)) + socklen_t(name.size());
        if (bind(m_socket, reinterpret_cast<sockaddr *>(&address), length) != 0)
            qFatal("No socket can be bound");
        if (!name.startsWith('@'))
            chmod(name.constData(), 0666);
    }

    ~MessageSocket()
    {
        close(m_socket);
        QFile::remove(m_path);
    }

    /// All messages up to now, as they came.
    const QStringList &messages()
    {
        QByteArray room(65536, Qt::Uninitialized);
        for (;;) {
            const ssize_t length = recv(m_socket, room.data(), std::size_t(room.size()), 0);
            if (length < 0)
                return m_messages;
            m_messages += QString::fromLocal8Bit(room.constData(), int(length));
        }
    }

    /// What the lines of a log say, without program and thread.
    QStringList texts()
    {
        QStringList texts;
        for (const QString &message : messages())
            texts += message.mid(message.indexOf("  ", message.indexOf("]: ")) + 2);
        return texts;
    }

    bool has(const QString &text) { return texts().contains(text); }

private:
    QString m_path;
    int m_socket;
    QStringList m_messages;
};

/// A job of the program's main() in a process of its own, which knows the devices of \a directory and "board.conf" there.
class Child
{
public:
    Child(const DeviceDirectory &directory, const QStringList &job, const QMap<QString, QString> &environment = {})
    {
        QProcessEnvironment all = QProcessEnvironment::systemEnvironment();
        for (const char *name : {"WIDGET_LOG_LEVEL", "LANG", "LC_MESSAGES", "TZ", "NOTIFY_SOCKET", "WATCHDOG_USEC", "WATCHDOG_PID"})
            all.remove(name);
        all.insert("LC_ALL", "C.UTF-8");
        all.insert("WIDGET_BOARD_CONF", directory.path("board.conf"));
        all.insert("WIDGET_TEST_DEVICES", directory.path("x").chopped(1));
        for (auto it = environment.begin(); it != environment.end(); ++it)
            all.insert(it.key(), it.value());
        m_process.setProcessEnvironment(all);
        m_process.start(QCoreApplication::applicationFilePath(), QStringList("--child") + job);
        if (!m_process.waitForStarted(LongestWait))
            qFatal("This program cannot be started again");
    }

    ~Child()
    {
        if (m_process.state() == QProcess::NotRunning)
            return;
        m_process.kill();
        m_process.waitForFinished(LongestWait);
    }

    /// Has the job do the next thing.
    void tell(const QByteArray &line) { m_process.write(line + '\n'); }

    QString output()
    {
        m_output += m_process.readAllStandardOutput();
        return QString::fromLocal8Bit(m_output);
    }

    QString errors()
    {
        m_errors += m_process.readAllStandardError();
        return QString::fromLocal8Bit(m_errors);
    }

    /// Whether it has the file at \a path open.
    bool hasOpen(const QString &path) const
    {
        const QDir open(QString("/proc/%1/fd").arg(m_process.processId()));
        for (const QString &name : open.entryList(QDir::Files | QDir::System))
            if (QFile::symLinkTarget(open.filePath(name)) == path)
                return true;
        return false;
    }

    /// Ends the job's input. Returns whether it then ended in order.
    bool ends()
    {
        m_process.closeWriteChannel();
        const bool finished = m_process.state() == QProcess::NotRunning || m_process.waitForFinished(LongestWait);
        return finished && m_process.exitStatus() == QProcess::NormalExit && m_process.exitCode() == 0;
    }

    void kill()
    {
        m_process.kill();
        m_process.waitForFinished(LongestWait);
    }

private:
    QProcess m_process;
    QByteArray m_output;
    QByteArray m_errors;
};

#endif
