#include "plainswitcher.h"

#include "screens.h"

#include <QKeyEvent>
#include <QLabel>

namespace {

const QColor Ground(0x47, 0x42, 0x42);
const QColor Paper(0xf8, 0xf7, 0xf6);

const QRect LeftRect(3, 20, 41, 106);
const QRect CentreRect(48, 20, 124, 106);
const QRect RightRect(176, 20, 41, 106);
const int NameTop = 130;
const QRect FirstDotRect(85, 155, 6, 6);
const int DotStep = 10;

}

PlainSwitcher::PlainSwitcher(QWidget *parent)
    : QWidget(parent)
{
    resize(ScreenWidth, ScreenHeight);
    QPalette palette;
    palette.setColor(QPalette::Window, Ground);
    palette.setColor(QPalette::WindowText, Paper);
    setPalette(palette);
    setAutoFillBackground(true);

    for (int i = 0; i < EntryCount; ++i) {
        const QString picture = QString::fromLatin1(entryPictures[i]);
        m_centrePictures[i].load(picturePath(picture));
        m_sidePictures[i].load(picturePath(picture + QLatin1String("_side")));
    }
    m_dot.load(picturePath("page_off"));
    m_litDot.load(picturePath("page_on"));

    m_left = newPicture(LeftRect);
    m_centre = newPicture(CentreRect);
    m_right = newPicture(RightRect);
    for (int i = 0; i < EntryCount; ++i) {
        m_dots[i] = newPicture(FirstDotRect.translated(i * DotStep, 0));
        m_dots[i]->setPixmap(m_dot);
    }
    m_name = new QLabel(this);
    m_name->setAlignment(Qt::AlignHCenter | Qt::AlignTop);
    QFont font;
    font.setPointSize(EntryPointSize);
    font.setBold(true);
    m_name->setFont(font);
    select(0);
}

void PlainSwitcher::keyReleaseEvent(QKeyEvent *event)
{
    switch (event->key()) {
    case Qt::Key_4:
        select((m_current + EntryCount - 1) % EntryCount);
        break;
    case Qt::Key_6:
        select((m_current + 1) % EntryCount);
        break;
    default:
        event->ignore();
        break;
    }
}

QLabel *PlainSwitcher::newPicture(const QRect &rect)
{
    QLabel *label = new QLabel(this);
    label->setGeometry(rect);
    label->setAlignment(Qt::AlignCenter);
    return label;
}

void PlainSwitcher::select(int index)
{
    m_dots[m_current]->setPixmap(m_dot);
    m_dots[index]->setPixmap(m_litDot);
    m_left->setPixmap(m_sidePictures[(index + EntryCount - 1) % EntryCount]);
    m_centre->setPixmap(m_centrePictures[index]);
    m_right->setPixmap(m_sidePictures[(index + 1) % EntryCount]);
    m_name->setText(QString::fromLatin1(entryNames[index]));
    m_name->adjustSize();
    m_name->move((ScreenWidth - m_name->width()) / 2, NameTop);
    m_current = index;
}
