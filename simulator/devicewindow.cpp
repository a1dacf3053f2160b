#include "devicewindow.h"

#include "keypages.h"

#include <QApplication>
#include <QKeyEvent>
#include <QPainter>
#include <QPainterPath>
#include <QWindow>

namespace {

const KeyButton::Face functionKeys[] = {
    {Qt::Key_F1, "F1"},
    {Qt::Key_F2, "F2"},
    {Qt::Key_F3, "F3"},
    {Qt::Key_F4, "F4"},
};

const KeyButton::Face commandKeys[] = {
    {Qt::Key_Escape, "ESC"},
    {Qt::Key_Menu, "OK"},
};

const KeyButton::Face keypadKeys[4][3] = {
    {{Qt::Key_1, "1"}, {Qt::Key_2, "2"}, {Qt::Key_3, "3"}},
    {{Qt::Key_4, "4"}, {Qt::Key_5, "5"}, {Qt::Key_6, "6"}},
    {{Qt::Key_7, "7"}, {Qt::Key_8, "8"}, {Qt::Key_9, "9"}},
    {{Qt::Key_Asterisk, "*"}, {Qt::Key_0, "0"}, {Qt::Key_NumberSign, "#"}},
};

// Pixels.
const int Margin = 20;
const int BezelWidth = 9;
const int Gap = 8;
const int ColumnGap = 22;

// Milliseconds.
const int ReleaseDelay = 20;

/// What the key in this place of the keypad types beside its digit.
QString lettersOn(int row, int column)
{
    QString letters = QString::fromUtf8(alphabets[0].capitals.keys[row][column]);
    return letters.remove(QLatin1String(keypadKeys[row][column].label));
}

}

DeviceWindow::DeviceWindow(const Screens &screens, KeyMode keyMode, int zoom)
    : m_zoom(zoom),
      m_device(screens, keyMode, this),
      m_magnifier(m_device, zoom, this)
{
    setWindowTitle(QStringLiteral("Simulator"));
    setWindowIcon(QIcon(QStringLiteral(":/simulator/device.png")));

    placeDisplay();
    placeFunctionKeys();
    placeKeypad();
    setFixedSize(m_keypad.right() + 1 + Margin, m_functionKeys.bottom() + 1 + Margin);

    connect(&m_releaseTimer, &QTimer::timeout, this, &DeviceWindow::releaseAtLast);
    connect(&m_device, &Device::keyMoved, this, [this](int key, KeyMove move) {
        for (KeyButton *button : m_keys) {
            if (button->key() == key)
                button->setDown(move == KeyMove::Press || move == KeyMove::Repeat);
        }
    });
}

void DeviceWindow::placeDisplay()
{
    const QPoint corner(Margin + BezelWidth, Margin + BezelWidth);
    m_device.move(corner);
    m_magnifier.move(corner);
    m_bezel = QRect(corner, m_magnifier.size()).adjusted(-BezelWidth, -BezelWidth, BezelWidth, BezelWidth);
}

void DeviceWindow::placeFunctionKeys()
{
    m_functionKeys = QRect(m_bezel.left(), m_bezel.bottom() + 1 + Gap + 2, m_bezel.width(), 28 + 4 * m_zoom);
    const int width = (m_functionKeys.width() - 3 * Gap) / 4;
    for (int i = 0; i < 4; ++i) {
        const int x = m_functionKeys.left() + i * (m_functionKeys.width() - width) / 3;
        addKey(functionKeys[i], QString(), QRect(x, m_functionKeys.top(), width, m_functionKeys.height()));
    }
}

void DeviceWindow::placeKeypad()
{
    // Five rows of keys, as high as the display and the function keys leave room for, but not too big for a finger.
    const int room = m_functionKeys.bottom() + 1 - m_bezel.top();
    const int height = qMin((room - 4 * Gap) / 5, 36 + 11 * m_zoom);
    const int width = height * 5 / 4;
    const QSize size(3 * width + 2 * Gap, 5 * height + 4 * Gap);
    m_keypad = QRect(QPoint(m_bezel.right() + 1 + ColumnGap, m_functionKeys.bottom() + 1 - size.height()), size);

    const int wide = (size.width() - Gap) / 2;
    addKey(commandKeys[0], QString(), QRect(m_keypad.left(), m_keypad.top(), wide, height));
    addKey(commandKeys[1], QString(), QRect(m_keypad.right() + 1 - wide, m_keypad.top(), wide, height));
    for (int row = 0; row < 4; ++row) {
        for (int column = 0; column < 3; ++column) {
            const QPoint corner(m_keypad.left() + column * (width + Gap), m_keypad.top() + (1 + row) * (height + Gap));
            addKey(keypadKeys[row][column], lettersOn(row, column), QRect(corner, QSize(width, height)));
        }
    }
}

void DeviceWindow::addKey(const KeyButton::Face &face, const QString &letters, const QRect &rect)
{
    KeyButton *key = new KeyButton(face, letters, m_device, this);
    key->setGeometry(rect);
    m_keys.append(key);
}

void DeviceWindow::showActive()
{
    window()->show();
    // Before any widget sees the PC's keys, so that only the device's way of pressing reaches them.
    window()->windowHandle()->installEventFilter(this);
    window()->activateWindow();
    QApplication::setActiveWindow(window());
}

QImage DeviceWindow::picture()
{
    m_magnifier.refresh();
    return grab().toImage().convertToFormat(QImage::Format_RGB32);
}

bool DeviceWindow::eventFilter(QObject *, QEvent *event)
{
    if (event->type() != QEvent::KeyPress && event->type() != QEvent::KeyRelease)
        return false;
    if (QApplication::activePopupWidget())
        return false;
    QKeyEvent *keyEvent = static_cast<QKeyEvent *>(event);
    const int key = keyOf(keyEvent);
    if (key == Qt::Key_unknown)
        return true;
    if (event->type() == QEvent::KeyPress)
        handlePress(key, keyEvent);
    else
        handleRelease(key, keyEvent);
    return true;
}

int DeviceWindow::keyOf(QKeyEvent *event)
{
    const quint32 scanCode = event->nativeScanCode();
    const int key = deviceKey(event->key(), m_device.keyMode());
    // Who lets go of Shift first has pressed # and now releases 3.
    if (event->type() == QEvent::KeyRelease || event->isAutoRepeat())
        return m_keyOfScanCode.value(scanCode, key);
    m_keyOfScanCode.insert(scanCode, key);
    return key;
}

// X11 reports a release together with each repeat, which the toolkit mostly, but not always, marks as belonging to it.
// So a release waits for a moment: a press of the same time makes a repeat of both.

void DeviceWindow::handlePress(int key, QKeyEvent *event)
{
    const bool cancelsRelease = m_releaseTimer.isActive() && key == m_releasedKey
            && event->timestamp() == m_releaseTime;
    if (cancelsRelease)
        m_releaseTimer.stop();
    else
        releaseAtLast();
    if (cancelsRelease || event->isAutoRepeat())
        m_device.repeat(key);
    else
        m_device.press(key);
}

void DeviceWindow::handleRelease(int key, QKeyEvent *event)
{
    releaseAtLast();
    if (event->isAutoRepeat())
        return;
    m_releasedKey = key;
    m_releaseTime = event->timestamp();
    m_releaseTimer.start(ReleaseDelay);
}

void DeviceWindow::releaseAtLast()
{
    if (!m_releaseTimer.isActive())
        return;
    m_releaseTimer.stop();
    m_device.release(m_releasedKey);
}

bool DeviceWindow::event(QEvent *event)
{
    // The releases of the keys that are down go to another window.
    if (event->type() == QEvent::WindowDeactivate)
        m_device.forgetKeys();
    return QWidget::event(event);
}

void DeviceWindow::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);

    QLinearGradient body(0, 0, 0, height());
    body.setColorAt(0, QColor(0x4f4949));
    body.setColorAt(1, QColor(0x332e2f));
    painter.fillRect(rect(), body);
    painter.setPen(QPen(QColor(255, 255, 255, 26), 1));
    painter.setBrush(Qt::NoBrush);
    painter.drawRoundedRect(QRectF(rect()).adjusted(6.5, 6.5, -6.5, -6.5), 12, 12);

    const QRectF bezel(m_bezel);
    painter.setPen(Qt::NoPen);
    painter.setBrush(QColor(255, 255, 255, 30));
    painter.drawRoundedRect(bezel.translated(0, 1), 8, 8);
    painter.setBrush(QColor(0x140f10));
    painter.drawRoundedRect(bezel, 8, 8);

    // What the keypad leaves free above itself is the loudspeaker.
    const QRect speaker(m_keypad.left(), m_bezel.top(), m_keypad.width(), m_keypad.top() - 2 * Gap - m_bezel.top());
    painter.setBrush(QColor(0x1f1618));
    const int slot = 2 + m_zoom;
    for (int y = speaker.top(); y + slot <= speaker.bottom(); y += 3 * slot)
        painter.drawRoundedRect(QRectF(speaker.left(), y, speaker.width(), slot), slot / 2.0, slot / 2.0);
}
