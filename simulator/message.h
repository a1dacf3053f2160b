#ifndef MESSAGE_H
#define MESSAGE_H

#include <QLabel>
#include <QTimer>

/// A few words over the title bar, which go by themselves.
class Message : public QLabel
{
public:
    explicit Message(QWidget *parent);

    void showText(const QString &text);

private:
    QTimer m_timer;
};

#endif
