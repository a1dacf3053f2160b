#include "keybutton.h"

#include "device.h"

#include <QMouseEvent>
#include <QPainter>

namespace {

const int RepeatDelay = 500;
const int RepeatInterval = 100;

struct Paint
{
    QColor top;
    QColor bottom;
    QColor edge;
    QColor label;
    QColor letters;
};

const Paint darkKey = {0x625c5c, 0x4a4545, 0x1b1617, 0xf8f7f6, 0xd4cccc};
const Paint darkKeyDown = {0x3b3636, 0x453f3f, 0xf7ce86, 0xf7ce86, 0xf7ce86};
const Paint okKey = {0xfbdfac, 0xf0bd68, 0x1b1617, 0x1f1618, 0x594b4f};
const Paint okKeyDown = {0xd9a650, 0xe5b45f, 0xf8f7f6, 0x1f1618, 0x594b4f};

const Paint &paintFor(int key, bool down)
{
    if (key == Qt::Key_Menu)
        return down ? okKeyDown : okKey;
    return down ? darkKeyDown : darkKey;
}

QFont fontOf(int pixels, bool bold)
{
    QFont font;
    font.setPixelSize(pixels);
    font.setBold(bold);
    return font;
}

/// Signs are smaller and narrower than letters of their size.
QFont signFont(int pixels)
{
    QFont font = fontOf(pixels * 5 / 4, true);
    font.setLetterSpacing(QFont::AbsoluteSpacing, pixels / 6.0);
    return font;
}

/// A triangle in \a area that points upwards, turned clockwise.
QPolygonF triangle(const QRectF &area, int quarterTurns)
{
    QTransform transform;
    transform.translate(area.center().x(), area.center().y());
    transform.rotate(90 * quarterTurns);
    transform.scale(area.width() / 2, area.height() / 2);
    return transform.map(QPolygonF({QPointF(0, -0.7), QPointF(1, 0.7), QPointF(-1, 0.7)}));
}

/// How often triangle() has to be turned for a direction key in \a mode, or -1 for every other key.
int quarterTurns(int key, KeyMode mode)
{
    const int turned[] = {Qt::Key_Up, Qt::Key_Right, Qt::Key_Down, Qt::Key_Left};
    for (int turns = 0; turns < 4; ++turns) {
        if (key == deviceKey(turned[turns], mode))
            return turns;
    }
    return -1;
}

}

KeyButton::KeyButton(const Face &face, const QString &letters, Device &device, QWidget *parent)
    : QWidget(parent),
      m_face(face),
      m_letters(letters),
      m_device(device)
{
    setFocusPolicy(Qt::NoFocus);
    connect(&m_repeatTimer, &QTimer::timeout, this, [this] {
        m_device.repeat(m_face.key);
        m_repeatTimer.start(RepeatInterval);
    });
}

void KeyButton::setDown(bool down)
{
    if (m_down != down) {
        m_down = down;
        update();
    }
}

void KeyButton::paintEvent(QPaintEvent *)
{
    const Paint &paint = paintFor(m_face.key, m_down);
    const QRectF body = QRectF(rect()).adjusted(0.5, 0.5, -0.5, -1.5);
    const qreal radius = qMin(10, height() / 4);

    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(QColor(0, 0, 0, 90));
    painter.drawRoundedRect(body.translated(0, 1.5), radius, radius);
    QLinearGradient gradient(body.topLeft(), body.bottomLeft());
    gradient.setColorAt(0, paint.top);
    gradient.setColorAt(1, paint.bottom);
    painter.setBrush(gradient);
    painter.setPen(QPen(paint.edge, 1));
    painter.drawRoundedRect(body, radius, radius);

    const bool hasLetters = !m_letters.isEmpty();
    const int labelSize = qBound(12, height() * (hasLetters ? 38 : 42) / 100, 34);
    const int lettersSize = qBound(8, height() * 19 / 100, 16);
    QRect labelRect = rect();
    if (hasLetters) {
        const int used = labelSize + lettersSize + 1;
        const int top = (height() - used) / 2;
        labelRect = QRect(0, top - labelSize / 10, width(), labelSize);
        painter.setFont(m_letters.at(0).isLetter() ? fontOf(lettersSize, false) : signFont(lettersSize));
        painter.setPen(paint.letters);
        painter.drawText(QRect(0, top + labelSize + 1, width(), lettersSize), Qt::AlignCenter | Qt::TextDontClip,
                         m_letters);
    }
    painter.setFont(fontOf(labelSize, true));
    painter.setPen(paint.label);
    painter.drawText(labelRect, Qt::AlignCenter | Qt::TextDontClip, QString::fromUtf8(m_face.label));

    const int turns = quarterTurns(m_face.key, m_device.keyMode());
    if (turns >= 0) {
        const qreal side = qMax(7.0, height() * 0.13);
        painter.setPen(Qt::NoPen);
        painter.setBrush(QColor(0xf7, 0xce, 0x86));
        painter.drawPolygon(triangle(QRectF(width() - side - 5, 5, side, side), turns));
    }
}

void KeyButton::mousePressEvent(QMouseEvent *event)
{
    if (event->button() != Qt::LeftButton)
        return;
    m_device.press(m_face.key);
    m_repeatTimer.start(RepeatDelay);
}

void KeyButton::mouseReleaseEvent(QMouseEvent *event)
{
    if (event->button() != Qt::LeftButton)
        return;
    m_repeatTimer.stop();
    m_device.release(m_face.key);
}
