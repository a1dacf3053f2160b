#include "filterline.h"

#include <QApplication>
#include <QFocusEvent>
#include <QKeyEvent>
#include <QMouseEvent>

FilterLine::FilterLine(QWidget *parent)
    : QLineEdit(parent)
{
    setFocusPolicy(Qt::NoFocus);
    setContextMenuPolicy(Qt::NoContextMenu);
    setClearButtonEnabled(true);
}

bool FilterLine::eventFilter(QObject *watched, QEvent *event)
{
    if (watched != m_window)
        return QLineEdit::eventFilter(watched, event);
    switch (event->type()) {
    case QEvent::KeyPress:
    case QEvent::KeyRelease:
        return takeKey(static_cast<QKeyEvent *>(event));
    case QEvent::MouseButtonPress: {
        const QPoint place = window()->mapFromGlobal(QCursor::pos());
        if (!rect().contains(mapFrom(window(), place)))
            end();
        return false;
    }
    case QEvent::FocusOut:
        end();
        return false;
    default:
        return false;
    }
}

bool FilterLine::takeKey(QKeyEvent *event)
{
    // Of a key that was down before, the release belongs to the device.
    if (event->type() == QEvent::KeyRelease)
        return m_keysDown.remove(event->nativeScanCode());
    m_keysDown.insert(event->nativeScanCode());
    switch (event->key()) {
    case Qt::Key_Escape:
        clear();
        end();
        break;
    case Qt::Key_Return:
    case Qt::Key_Enter:
    case Qt::Key_Tab:
        end();
        break;
    default:
        keyPressEvent(event);
        break;
    }
    return true;
}

void FilterLine::mousePressEvent(QMouseEvent *event)
{
    if (!isTyping())
        begin();
    QLineEdit::mousePressEvent(event);
}

void FilterLine::hideEvent(QHideEvent *event)
{
    end();
    QLineEdit::hideEvent(event);
}

void FilterLine::begin()
{
    m_window = window()->windowHandle();
    m_window->installEventFilter(this);
    m_keysDown.clear();
    // It looks, and only looks, as if it had the focus.
    QFocusEvent event(QEvent::FocusIn);
    focusInEvent(&event);
}

void FilterLine::end()
{
    if (!isTyping())
        return;
    m_window->removeEventFilter(this);
    m_window = nullptr;
    deselect();
    QFocusEvent event(QEvent::FocusOut);
    focusOutEvent(&event);
}
