#include "widget.h"

#include "platform/soundmanager.h"

Widget::Widget(QWidget *parent, SoundManager *soundManager)
    : QWidget(parent),
      m_soundManager(soundManager),
      m_useFunctionKeys(false)
{
}

void Widget::playSound(int id)
{
    if (m_soundManager)
        m_soundManager->sndPlay(id);
}

bool Widget::isUpKey(int key)
{
    return key == (m_useFunctionKeys ? Qt::Key_F1 : Qt::Key_2);
}

bool Widget::isDownKey(int key)
{
    return key == (m_useFunctionKeys ? Qt::Key_F2 : Qt::Key_8);
}

bool Widget::isLeftKey(int key)
{
    return key == (m_useFunctionKeys ? Qt::Key_F3 : Qt::Key_4);
}

bool Widget::isRightKey(int key)
{
    return key == (m_useFunctionKeys ? Qt::Key_F4 : Qt::Key_6);
}

bool Widget::isOKKey(int key)
{
    return key == Qt::Key_Menu;
}
