#include "message.h"

namespace {

const int MessageTime = 2000;

}

Message::Message(QWidget *parent)
    : QLabel(parent)
{
    setAlignment(Qt::AlignCenter);
    setStyleSheet(QStringLiteral("color: #F7CE86; background-color: #1F1618;"));
    QFont textFont;
    textFont.setPointSize(14);
    textFont.setBold(true);
    setFont(textFont);
    hide();

    m_timer.setSingleShot(true);
    connect(&m_timer, &QTimer::timeout, this, &QWidget::hide);
}

void Message::showText(const QString &text, int height)
{
    setGeometry(0, 0, parentWidget()->width(), height);
    setText(text);
    raise();
    show();
    m_timer.start(MessageTime);
}
