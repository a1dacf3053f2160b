#ifndef WIDGETBOTTOM_H
#define WIDGETBOTTOM_H

#include "widget.h"

#include <QString>

class QHBoxLayout;
class QLabel;

/// A bar at the bottom of a screen: two halves, each with its own background and two status pictures side by side.
///
/// The application registers one style sheet per picture and state, usually one that names an image, and sets the
/// states of all four pictures in one call. The bar takes no keys and no focus.
class WIDGET_EXPORT WidgetBottom : public Widget
{
    Q_OBJECT

public:
    /// A bar whose halves have no place yet; setBgGeometry() gives it.
    WidgetBottom(QWidget *parent, SoundManager *soundManager);

    /// Item 0 or 1: dresses the left or right half in \a areaStyle at once; \a stateStyle and \a state do not matter.
    /// Items 2 to 5: makes \a stateStyle the sheet of picture 0 to 3 (left to right) in \a state (0 to 5), seen at
    /// the next statusBottomShow(); \a areaStyle does not matter, and a \a state outside the range is ignored with a
    /// log line. Any other item is ignored.
    void setItemStyle(int item, QString stateStyle, QString areaStyle, int state);

    /// Places the two halves in the bar, each \a w / 2 by \a h pixels: the left one at (\a x, \a y), the right one at
    /// (\a w / 2, \a y) whatever \a x is. The bar itself stays where it is.
    void setBgGeometry(int x, int y, int w, int h);

    /// Shows the pictures in these states (0 to 5 each). If one is outside the range the call is ignored with a log
    /// line.
    void statusBottomShow(int state0, int state1, int state2, int state3);

private:
    enum { PictureCount = 4, StateCount = 6 };

    QWidget *m_leftArea;
    QWidget *m_rightArea;
    QHBoxLayout *m_leftLayout;
    QHBoxLayout *m_rightLayout;
    QLabel *m_pictureLabel[PictureCount];
    QString m_stateStyle[PictureCount][StateCount];
};

#endif
