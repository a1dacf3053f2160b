#ifndef WIDGETSIMPLETITLE_H
#define WIDGETSIMPLETITLE_H

#include "widget.h"

#include <QString>

class QLabel;

/// A title bar of one line: white bold text at the left on dark grey (#474242), with an ellipsis where it is too long.
///
/// The bar is 220 by 38 pixels, and so is the title's place: the text begins at x 0, at the very edge, unless
/// setItemGeometry() moves it. The bar takes no keys and no focus.
class WIDGET_EXPORT WidgetSimpleTitle : public Widget
{
    Q_OBJECT

public:
    /// The parts that can be placed and styled.
    enum Item {
        ItemBackground = 0,  ///< the bar itself
        ItemTitle = 1        ///< the title text
    };

    /// A bar with an empty title of 13 points.
    WidgetSimpleTitle(QWidget *parent, SoundManager *soundManager);

    /// Places \a item at (\a x, \a y) with the size \a w by \a h, in pixels: the bar in its parent, the title in the
    /// bar. The text is not cut anew for that; call setTitle() again. An unknown item is rejected with a log line.
    void setItemGeometry(Item item, int x, int y, int w, int h);

    /// Replaces the style sheet of \a item. An unknown item is rejected with a log line.
    void setItemStyle(Item item, QString styleSheet);

    /// Gives the title a default font of \a pointSize points, bold whatever \a bold says, and the bar's own colours:
    /// \a styleSheet has no lasting effect. The text is not cut anew for that; call setTitle() again.
    /// Any other item than ItemTitle is rejected with a log line.
    void setFontStyle(Item item, int pointSize, bool bold, QString styleSheet);

    /// Shows \a title, cut with an ellipsis if it is wider than the title's place. It is never read as rich text.
    void setTitle(QString title);

private:
    QLabel *m_titleLabel;

    QWidget *findPart(Item item, const char *function, int line);
};

#endif
