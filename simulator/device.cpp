#include "device.h"

#include "message.h"
#include "texts.h"
#include "widget.h"

#include <QApplication>
#include <QImage>
#include <QKeyEvent>

Device::Device(const Screens &screens, KeyMode keyMode, QWidget *parent)
    : QWidget(parent),
      m_screens(screens),
      m_keyMode(keyMode),
      m_memory(std::make_unique<QObject>()),
      m_message(new Message(this))
{
    setFixedSize(Width, Height);
    setAutoFillBackground(true);
}

void Device::open(const QString &name)
{
    const Screen *screen = findScreen(m_screens, name);
    if (!screen) {
        showMessage(text("There is no such screen"));
        return;
    }
    push(screen->create(*this), screen->barHeight);
}

void Device::push(QWidget *screen, int barHeight)
{
    if (!m_openScreens.empty())
        m_openScreens.back().lastFocus = focusWidget();
    screen->setGeometry(0, 0, Width, Height);
    screen->setAutoFillBackground(true);
    m_openScreens.push_back({screen, nullptr, barHeight});
    setKeyModeOfWidgets();
    screen->show();
    if (!screen->isAncestorOf(focusWidget()))
        screen->setFocus();
    m_message->raise();
}

void Device::back()
{
    if (m_openScreens.size() < 2) {
        showMessage(text("This is the first screen"));
        return;
    }
    closeTop();
    const OpenScreen &top = m_openScreens.back();
    if (top.lastFocus)
        top.lastFocus->setFocus();
    else
        top.widget->setFocus();
}

void Device::start(const QString &name)
{
    while (!m_openScreens.empty())
        closeTop();
    m_memory = std::make_unique<QObject>();
    forgetKeys();
    m_message->hide();
    open(name);
}

void Device::showMessage(const QString &text)
{
    m_message->showText(text, m_openScreens.empty() ? Screen::TitleBarHeight : m_openScreens.back().barHeight);
}

void Device::press(int key)
{
    if (m_keysDown.contains(key))
        return;
    m_keysDown.insert(key);
    emit keyMoved(key, KeyMove::Press);
    m_message->hide();
    send(QEvent::KeyPress, key, false);
}

void Device::repeat(int key)
{
    if (!m_keysDown.contains(key))
        return;
    emit keyMoved(key, KeyMove::Repeat);
    send(QEvent::KeyPress, key, true);
}

void Device::release(int key)
{
    if (!m_keysDown.remove(key))
        return;
    emit keyMoved(key, KeyMove::Release);
    send(QEvent::KeyRelease, key, false);
}

void Device::forget(int key)
{
    if (m_keysDown.remove(key))
        emit keyMoved(key, KeyMove::Forget);
}

void Device::forgetKeys()
{
    const QSet<int> keys = m_keysDown;
    for (int key : keys)
        forget(key);
}

QImage Device::picture(int zoom)
{
    QImage image(size(), QImage::Format_RGB32);
    render(&image);
    return image.scaled(size() * zoom);
}

void Device::keyPressEvent(QKeyEvent *)
{
}

void Device::keyReleaseEvent(QKeyEvent *event)
{
    // Keys that the screen does not use end here.
    if (event->key() == Qt::Key_Escape)
        back();
}

void Device::closeTop()
{
    QWidget *widget = m_openScreens.back().widget;
    m_openScreens.pop_back();
    widget->hide();
    widget->deleteLater();
}

void Device::send(QEvent::Type type, int key, bool isRepeat)
{
    // The PC may have given the keyboard to another window; the device knows no other windows.
    if (!isActiveWindow())
        QApplication::setActiveWindow(window());
    setKeyModeOfWidgets();
    QKeyEvent event(type, key, Qt::NoModifier, keyText(key), isRepeat);
    QApplication::sendEvent(keyReceiver(), &event);
}

QWidget *Device::keyReceiver()
{
    QWidget *focused = QApplication::focusWidget();
    if (focused && isAncestorOf(focused))
        return focused;
    return m_openScreens.empty() ? this : m_openScreens.back().widget;
}

void Device::setKeyModeOfWidgets()
{
    // At every key anew: screens add rows whenever they like.
    const QList<Widget *> widgets = findChildren<Widget *>();
    for (Widget *widget : widgets)
        widget->m_useFunctionKeys = m_keyMode == KeyMode::Functions;
}
