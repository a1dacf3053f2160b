#include "plainkeypad.h"

#include "content.h"
#include "screens.h"

#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>

namespace {

const QColor Gap(0x3c, 0x37, 0x38);
const QColor Ground(0x47, 0x42, 0x42);
const QColor Bar(0x6e, 0x64, 0x64);
const QColor Glow(0xf7, 0xce, 0x86);
const QColor Ink(0x1f, 0x16, 0x18);
const QColor LineInk(0x3c, 0x37, 0x38);
const QColor SideInk(0x98, 0x8e, 0x8b);

const int BarHeight = 23;
const int CellWidth = 55;
const int KeyTop = KeypadLineHeight + BarHeight;
const int KeyX[] = {0, 74, 147, 220};
const int KeyY[] = {KeyTop, 90, 119, 148, 176};
const int LineRightMargin = 15;
const int MultiTapInterval = 1200;

QPalette coloured(const QColor &ground, const QColor &ink)
{
    QPalette palette;
    palette.setColor(QPalette::Window, ground);
    palette.setColor(QPalette::WindowText, ink);
    return palette;
}

QFont boldFont(int pointSize)
{
    QFont font;
    font.setPointSize(pointSize);
    font.setBold(true);
    return font;
}

// A key at rest leaves a gap around it, through which the ground of the keypad is seen.
QRect restRect(const QRect &litRect)
{
    return litRect.adjusted(1, 1, -1, -1);
}

}

PlainKeypad::PlainKeypad(QWidget *parent)
    : QWidget(parent),
      m_restPalette(coloured(Ground, Glow)),
      m_litPalette(coloured(Glow, Ink))
{
    resize(ScreenWidth, ScreenHeight);
    setPalette(coloured(Gap, Glow));
    setAutoFillBackground(true);

    m_line = new QLineEdit(this);
    m_line->setGeometry(0, 0, ScreenWidth, KeypadLineHeight);
    m_line->setFocusPolicy(Qt::NoFocus);
    m_line->setFrame(false);
    m_line->setMaxLength(KeypadMaxLength);
    m_line->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    m_line->setTextMargins(0, 0, LineRightMargin, 0);
    m_line->setFont(boldFont(16));
    QPalette linePalette;
    linePalette.setColor(QPalette::Base, Qt::white);
    linePalette.setColor(QPalette::Text, LineInk);
    m_line->setPalette(linePalette);

    addCells();
    addKeys();
    m_multiTapTimer.setSingleShot(true);
    m_multiTapTimer.setInterval(MultiTapInterval);
    connect(&m_multiTapTimer, &QTimer::timeout, this, [this] {
        light(nullptr);
        m_tappedKey = nullptr;
    });
}

void PlainKeypad::keyReleaseEvent(QKeyEvent *event)
{
    if (event->key() >= Qt::Key_0 && event->key() <= Qt::Key_9)
        typeDigit(event->key());
    else
        event->ignore();
}

QLabel *PlainKeypad::newLabel(const QRect &rect, int pointSize, const QPalette &palette)
{
    QLabel *label = new QLabel(this);
    label->setGeometry(rect);
    label->setAlignment(Qt::AlignCenter);
    label->setFont(boldFont(pointSize));
    label->setPalette(palette);
    label->setAutoFillBackground(true);
    return label;
}

void PlainKeypad::addCells()
{
    const QPalette barPalette = coloured(Bar, Glow);
    for (int cell = 0; cell < 4; ++cell) {
        QLabel *label = newLabel(QRect(cell * CellWidth, KeypadLineHeight, CellWidth, BarHeight), 14, barPalette);
        if (cell < 2)
            label->setText(QString::fromLatin1(keypadCellTexts[cell]));
        else
            label->setPixmap(QPixmap(picturePath(cell == 2 ? "key_space_nor" : "key_delete_nor")));
    }
}

void PlainKeypad::addKeys()
{
    const QPalette sidePalette = coloured(Ground, SideInk);
    for (int row = 0; row < 4; ++row) {
        for (int column = 0; column < 3; ++column) {
            const QRect rect(QPoint(KeyX[column], KeyY[row]), QPoint(KeyX[column + 1] - 1, KeyY[row + 1] - 1));
            const bool atTheSide = row == 3 && column != 1;
            m_keys[row][column] = newLabel(restRect(rect), 16, atTheSide ? sidePalette : m_restPalette);
            m_keys[row][column]->setText(QString::fromLatin1(keypadKeys[row][column]));
        }
    }
}

void PlainKeypad::typeDigit(int key)
{
    const int place = key == Qt::Key_0 ? 10 : key - Qt::Key_1;
    QLabel *label = m_keys[place / 3][place % 3];
    const QString letters = label->text();
    QString text = m_line->text();
    if (label == m_tappedKey) {
        m_tap = (m_tap + 1) % int(letters.size());
        text.chop(1);
    } else {
        if (text.size() >= KeypadMaxLength)
            return;
        m_tap = 0;
        m_tappedKey = label;
        light(label);
    }
    m_multiTapTimer.start();
    m_line->setText(text + letters.at(m_tap));
}

void PlainKeypad::light(QLabel *label)
{
    if (m_lit) {
        m_lit->setPalette(m_restPalette);
        m_lit->setGeometry(restRect(m_lit->geometry()));
    }
    m_lit = label;
    if (m_lit) {
        m_lit->setPalette(m_litPalette);
        m_lit->setGeometry(m_lit->geometry().adjusted(-1, -1, 1, 1));
    }
}
