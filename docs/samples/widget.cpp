#include "samples.h"

#include "platform/soundmanager.h"
#include "widget.h"

#include <QKeyEvent>
#include <QLabel>

namespace {

//! [widget_volume]
/// A number that up and down change.
class Volume : public Widget
{
public:
    explicit Volume(QWidget *parent)
        : Widget(parent, SoundManager::getInstance()),
          m_volume(3),
          m_label(new QLabel(this))
    {
        m_label->setGeometry(10, 0, 200, 30);
        show(m_volume);
    }

protected:
    virtual void keyReleaseEvent(QKeyEvent *event)
    {
        if (isUpKey(event->key()))
            show(m_volume + 1);
        else if (isDownKey(event->key()))
            show(m_volume - 1);
        else
            return Widget::keyReleaseEvent(event);  // whoever is around it may use the key
        playSound(901);
    }

private:
    void show(int volume)
    {
        m_volume = volume;
        m_label->setText(QString("Volume %1").arg(volume));
    }

    int m_volume;
    QLabel *m_label;
};
//! [widget_volume]

}

SAMPLE(widget_at_first, 220, 30, Paper)
{
    //! [widget_at_first]
    Volume *volume = new Volume(screen);
    volume->resize(220, 30);
    volume->setFocus();  // or no key reaches it
    //! [widget_at_first]
}

SAMPLE(widget_digit_keys, 220, 30, Paper)
{
    //! [widget_digit_keys]
    Volume *volume = new Volume(screen);
    volume->resize(220, 30);
    volume->setFocus();

    press(screen, Qt::Key_2, 4);  // what the user does
    //! [widget_digit_keys]
}

SAMPLE(widget_function_keys, 220, 30, Paper)
{
    //! [widget_function_keys]
    Volume *volume = new Volume(screen);
    volume->resize(220, 30);
    volume->m_useFunctionKeys = true;
    volume->setFocus();

    press(screen, Qt::Key_2);   // is a digit now
    press(screen, Qt::Key_F2);  // is down
    //! [widget_function_keys]
}
