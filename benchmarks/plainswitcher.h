#ifndef BENCHMARKS_PLAINSWITCHER_H
#define BENCHMARKS_PLAINSWITCHER_H

#include "content.h"

#include <QPixmap>
#include <QWidget>

class QLabel;

/// The carousel in plain widgets: labels with pixmaps that are loaded once.
class PlainSwitcher : public QWidget
{
public:
    explicit PlainSwitcher(QWidget *parent);

protected:
    void keyReleaseEvent(QKeyEvent *event) override;

private:
    QLabel *newPicture(const QRect &rect);
    void select(int index);

    int m_current = 0;
    QPixmap m_centrePictures[EntryCount];
    QPixmap m_sidePictures[EntryCount];
    QPixmap m_dot;
    QPixmap m_litDot;
    QLabel *m_left;
    QLabel *m_centre;
    QLabel *m_right;
    QLabel *m_name;
    QLabel *m_dots[EntryCount];
};

#endif
