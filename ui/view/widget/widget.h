#ifndef WIDGET_H
#define WIDGET_H

#include "widgetexport.h"

#include <QWidget>

class SoundManager;

/// The base of every widget of the library but WidgetMarqueeLable.
///
/// It adds three things to QWidget: key clicks, the question which key means which direction, and two signals.
/// There is no touch and no mouse; a widget never looks at a key code itself where one of the key tests will do.
class WIDGET_EXPORT Widget : public QWidget
{
    Q_OBJECT

protected:
    SoundManager *m_soundManager;  ///< not owned; null for a silent widget

public:
    /// The key mode: false if up, down, left and right are the digit keys 2, 8, 4 and 6 (as after construction), true if
    /// they are F1, F2, F3 and F4. The library only reads it; the application sets it on each widget.
    bool m_useFunctionKeys;

    /// A widget in \a parent that clicks through \a soundManager, which must outlive it. With a null \a soundManager the
    /// widget is silent.
    Widget(QWidget *parent, SoundManager *soundManager);

    /// Plays the sound \a id; nothing without a sound manager. 901 is the key click.
    void playSound(int id);

    /// The key tests: \a key is the value of QKeyEvent::key(), compared for equality only. Modifiers, auto-repeat and
    /// text do not matter. isOKKey() accepts Qt::Key_Menu in both key modes, and nothing else.
    bool isUpKey(int key);
    bool isDownKey(int key);
    bool isLeftKey(int key);
    bool isRightKey(int key);
    bool isOKKey(int key);

Q_SIGNALS:
    /// For subclasses and applications; the library never emits it.
    void visible();

    /// The user is done with this widget. Of the library's widgets WidgetList emits it, on the escape key.
    void finished();
};

#endif
