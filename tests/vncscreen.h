#ifndef VNCSCREEN_H
#define VNCSCREEN_H

#include "waiting.h"

#include <QElapsedTimer>
#include <QImage>
#include <QTcpServer>
#include <QTcpSocket>
#include <QtEndian>

/// Looks at a program that shows its screen by VNC, on this machine and without a password.
class VncScreen
{
public:
    /// A port that nobody listens on now.
    static int freePort()
    {
        QTcpServer server;
        if (!server.listen(QHostAddress::LocalHost))
            qFatal("There is no free port");
        return server.serverPort();
    }

    /// Waits for the program, and returns whether it is there.
    bool connectTo(int port)
    {
        QElapsedTimer time;
        time.start();
        while (time.elapsed() < LongestWait) {
            m_socket.connectToHost(QHostAddress(QHostAddress::LocalHost), quint16(port));
            if (m_socket.waitForConnected(LongestWait))
                return greet();
            QTest::qWait(20);
        }
        return false;
    }

    /// What the screen shows now; null when the program is gone.
    QImage picture()
    {
        QByteArray request(10, '\0');
        request[0] = 3;  // and not only what has changed
        qToBigEndian(quint16(m_picture.width()), request.data() + 6);
        qToBigEndian(quint16(m_picture.height()), request.data() + 8);
        m_socket.write(request);
        int missing = m_picture.width() * m_picture.height();
        while (missing > 0) {
            const QByteArray head = read(4);
            if (head.size() != 4 || head[0] != 0)
                return QImage();
            for (int i = number<quint16>(head, 2); i > 0; --i) {
                const QRect rect = readRectangle();
                if (rect.isNull())
                    return QImage();
                missing -= rect.width() * rect.height();
            }
        }
        return m_picture.copy();
    }

private:
    template<typename T>
    static T number(const QByteArray &bytes, int at)
    {
        return qFromBigEndian<T>(bytes.constData() + at);
    }

    QByteArray read(int size)
    {
        while (m_socket.bytesAvailable() < size && m_socket.waitForReadyRead(LongestWait)) {
        }
        return m_socket.read(size);
    }

    bool greet()
    {
        if (!read(12).startsWith("RFB "))
            return false;
        m_socket.write("RFB 003.003\n");
        const QByteArray security = read(4);
        if (security.size() != 4 || number<quint32>(security, 0) != 1)
            return false;
        m_socket.write(QByteArray(1, '\1'));
        const QByteArray start = read(24);
        if (start.size() != 24 || read(int(number<quint32>(start, 20))).isEmpty())
            return false;
        m_picture = QImage(number<quint16>(start, 0), number<quint16>(start, 2), QImage::Format_RGB32);
        // 32 bits for each pixel, the lowest byte first: blue, green, red. As they are, without compression.
        m_socket.write(QByteArray("\0\0\0\0" "\40\30\0\1" "\0\377\0\377\0\377" "\20\10\0" "\0\0\0", 20));
        m_socket.write(QByteArray("\2\0\0\1" "\0\0\0\0", 8));
        return true;
    }

    QRect readRectangle()
    {
        const QByteArray head = read(12);
        if (head.size() != 12 || number<qint32>(head, 8) != 0)
            return QRect();
        const QRect rect(number<quint16>(head, 0), number<quint16>(head, 2), number<quint16>(head, 4),
                         number<quint16>(head, 6));
        if (!m_picture.rect().contains(rect))
            return QRect();
        for (int y = rect.top(); y <= rect.bottom(); ++y) {
            const QByteArray line = read(4 * rect.width());
            if (line.size() != 4 * rect.width())
                return QRect();
            for (int x = 0; x < rect.width(); ++x)
                m_picture.setPixel(rect.left() + x, y, 0xff000000 | qFromLittleEndian<quint32>(line.constData() + 4 * x));
        }
        return rect;
    }

    QTcpSocket m_socket;
    QImage m_picture;
};

#endif
