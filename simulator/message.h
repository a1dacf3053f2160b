#ifndef MESSAGE_H
#define MESSAGE_H

#include <QLabel>
#include <QTimer>

/// A few words in place of the bar at the top, which go by themselves.
class Message : public QLabel
{
public:
    explicit Message(QWidget *parent);

    /// Shows \a text over a bar of \a height.
    void showText(const QString &text, int height);

private:
    QTimer m_timer;
};

#endif
