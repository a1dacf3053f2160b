#include "plainclock.h"

#include "content.h"
#include "screens.h"

#include <QLabel>

PlainClock::PlainClock(QWidget *parent)
    : QWidget(parent)
{
    resize(ScreenWidth, 68);
    for (int digit = 0; digit <= 9; ++digit) {
        m_digits[digit].load(picturePath(QStringLiteral("clock_%1").arg(digit)));
        m_smallDigits[digit].load(picturePath(QStringLiteral("clock_xs_%1").arg(digit)));
    }
    m_halves[0].load(picturePath("clock_am"));
    m_halves[1].load(picturePath("clock_pm"));

    m_half = newPicture(40, 0, 26, 13);
    m_hour[0] = newPicture(35, 23, 34, 45);
    m_hour[1] = newPicture(69, 23, 34, 45);
    m_minute[0] = newPicture(118, 23, 34, 45);
    m_minute[1] = newPicture(152, 23, 34, 45);
    m_second[0] = newPicture(65, 0, 9, 12);
    m_second[1] = newPicture(76, 0, 9, 12);
    newPicture(103, 23, 15, 45).label->setPixmap(QPixmap(picturePath("clock_separator")));
}

void PlainClock::showTime(int hour, int minute, int second)
{
    const int shownHour = hour > 12 ? hour - 12 : hour;
    show(m_half, m_halves, hour > 11 ? 1 : 0);
    show(m_hour[0], m_digits, shownHour / 10);
    show(m_hour[1], m_digits, shownHour % 10);
    show(m_minute[0], m_digits, minute / 10);
    show(m_minute[1], m_digits, minute % 10);
    show(m_second[0], m_smallDigits, second / 10);
    show(m_second[1], m_smallDigits, second % 10);
}

PlainClock::Picture PlainClock::newPicture(int x, int y, int w, int h)
{
    Picture picture;
    picture.label = new QLabel(this);
    picture.label->setGeometry(x, y, w, h);
    return picture;
}

void PlainClock::show(Picture &picture, const QPixmap *pixmaps, int index)
{
    if (picture.shown == index)
        return;
    picture.shown = index;
    picture.label->setPixmap(pixmaps[index]);
}
