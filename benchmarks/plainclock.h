#ifndef BENCHMARKS_PLAINCLOCK_H
#define BENCHMARKS_PLAINCLOCK_H

#include <QPixmap>
#include <QWidget>

class QLabel;

/// The clock in plain widgets: labels with pixmaps that are loaded once.
class PlainClock : public QWidget
{
public:
    explicit PlainClock(QWidget *parent);

    void showTime(int hour, int minute, int second);

private:
    struct Picture
    {
        QLabel *label = nullptr;
        int shown = -1;
    };

    Picture newPicture(int x, int y, int w, int h);
    static void show(Picture &picture, const QPixmap *pixmaps, int index);

    QPixmap m_digits[10];
    QPixmap m_smallDigits[10];
    QPixmap m_halves[2];
    Picture m_half;
    Picture m_hour[2];
    Picture m_minute[2];
    Picture m_second[2];
};

#endif
