#ifndef WIDGETMENUTITLE_H
#define WIDGETMENUTITLE_H

#include "widget.h"

class QLabel;

/// The title bar of a menu screen: a square icon, a bold title and a small information text in the top corner.
///
/// The bar is 220 by 38 pixels, white on dark grey (#474242). The icon stands at the left end and the information text at
/// the right; where StringRC::m_rightToLeft is set they change sides. The information text is hidden until it is given a
/// place or a style. The bar takes no keys and no focus.
class WIDGET_EXPORT WidgetMenuTitle : public Widget
{
public:
    /// The parts that can be placed and styled.
    enum Item {
        ItemBackground = 0,  ///< the bar itself
        ItemTitle = 1,       ///< the title text
        ItemIcon = 2,        ///< the icon
        ItemInfo = 3         ///< the information text
    };

    WidgetMenuTitle(QWidget *parent, SoundManager *sound);
    virtual ~WidgetMenuTitle();

    /// Places \a item at (\a x, \a y) with the size \a w by \a h, in pixels: the bar in its parent, the other parts in the
    /// bar. ItemInfo is shown by this. An unknown item is rejected with a log line.
    void setItemGeometry(WidgetMenuTitle::Item item, int x, int y, int w, int h);

    /// Styles \a item. The sheet of ItemBackground is replaced by \a style. To the sheets of the other parts \a style is
    /// added at the end, unless it occurs there already as a piece of text, in whatever case: "padding" is found in
    /// "padding-left: 1px;" and adds nothing. ItemInfo is shown by this. An unknown item is rejected with a log line.
    void setItemStyle(WidgetMenuTitle::Item item, QString style);

    /// Gives the title a default font of \a pointSize points, bold or in the default weight, and replaces its sheet by
    /// \a style. Then puts icon and title back to their own places, for the writing direction now in force.
    /// Any other item than ItemTitle is rejected with a log line.
    void setFontStyle(WidgetMenuTitle::Item item, int pointSize, bool bold, QString style);

    /// Shows \a text as the title. A text wider than the title is cut off at its edge.
    void setTitle(QString text);

private:
    QLabel *m_iconLabel;
    QLabel *m_titleLabel;
    QLabel *m_infoLabel;

    void placeIconAndTitle();
};

#endif
