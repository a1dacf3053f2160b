#ifndef WIDGET_H
#define WIDGET_H

#include "widgetexport.h"

#include <QWidget>

class SoundManager;

/// The base of every widget of the library but WidgetMarqueeLable.
///
/// It adds three things to QWidget: key clicks, the question which key means which direction, and two signals.
/// There is no touch and no mouse; a widget never looks at a key code itself where one of the key tests will do.
///
/// What holds for all widgets of the library:
/// - Sizes and fonts are made for a display on which a point is a pixel (72 dpi). Where it is more, as on a PC, texts
///   come out too large and are cut. With Qt 5 and 6 call qputenv("QT_FONT_DPI", "72") before the QApplication is made;
///   Qt 4.8 goes by the size of the display in millimetres.
/// - A width or a height below zero counts as zero. Sizes end at QWIDGETSIZE_MAX, places at INT_MAX - QWIDGETSIZE_MAX in
///   each direction, so that the toolkit can add the two.
/// - Where a picture is wanted, the sheet "image: url(:/name.png);" shows it in the middle of its place, made smaller
///   in proportion where it is too large, but never larger. "background-image" shows it in its own size from the top
///   left, again and again where there is room, and "border-image" stretches it over the whole place.
/// - The background of a widget's own sheet is painted only if the application sets Qt::WA_StyledBackground on it.
/// - Keys go to the widget that has the focus. A WidgetList gives it to a row when it is shown; no other widget takes
///   it by itself, so call setFocus() on it.
/// - A slot of any signal may call the widget back and delete what it likes: the widget itself, its parent, the list or
///   the row around it. A clock or date that runs wants its stop() first.
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
