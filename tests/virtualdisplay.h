#ifndef VIRTUALDISPLAY_H
#define VIRTUALDISPLAY_H

#include <QProcess>
#include <QStringList>
#include <QWidget>

#include <cstdio>
#include <cstdlib>

/// An X display of its own, and hands at its mouse and keyboard: what they do comes to the program as from a person.
///
/// To be made before the application.
class VirtualDisplay
{
public:
    VirtualDisplay()
    {
        m_server.setProcessChannelMode(QProcess::SeparateChannels);
        m_server.start("Xvfb", {"-displayfd", "1", "-screen", "0", "1600x1200x24", "-nolisten", "tcp", "-noreset"});
        while (m_server.state() != QProcess::NotRunning && !m_server.canReadLine())
            m_server.waitForReadyRead();
        const QByteArray number = m_server.readLine().trimmed();
        if (number.isEmpty()) {
            std::fprintf(stderr, "Xvfb does not start: %s\n", m_server.readAllStandardError().constData());
            std::exit(EXIT_FAILURE);
        }
        qputenv("DISPLAY", ':' + number);
        qputenv("QT_QPA_PLATFORM", "xcb");
    }

    ~VirtualDisplay()
    {
        m_server.terminate();
        m_server.waitForFinished(-1);
    }

    /// Returns false if it cannot be done.
    static bool act(const QStringList &arguments)
    {
        return QProcess::execute("xdotool", arguments) == 0;
    }

    static bool point(const QPoint &place)
    {
        return act({"mousemove", QString::number(place.x()), QString::number(place.y())});
    }

    static bool point(const QWidget *widget, const QPoint &place)
    {
        return point(widget->mapToGlobal(place));
    }

    static bool click(const QWidget *widget, const QPoint &place)
    {
        return point(widget, place) && act({"click", "1"});
    }

    static bool click(const QWidget *widget)
    {
        return click(widget, widget->rect().center());
    }

    /// A key of the PC, by X's name for it.
    static bool strike(const QString &key)
    {
        return act({"key", key});
    }

    static bool type(const QString &text)
    {
        return act({"type", text});
    }

private:
    QProcess m_server;
};

#endif
