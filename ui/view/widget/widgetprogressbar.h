#ifndef WIDGETPROGRESSBAR_H
#define WIDGETPROGRESSBAR_H

#include "widget.h"

#include <QString>

class QLabel;
class QProgressBar;

/// A used amount against a capacity, for instance of a memory: a title at the top left, the used amount at the top
/// right, and below them a flat bar in which the capacity is written. Numbers have a comma at each three digits.
///
/// It is made for 220 by 46 pixels. It takes no keys and no focus and is silent.
class WIDGET_EXPORT WidgetProgressBar : public Widget
{
    Q_OBJECT

public:
    /// The parts that can be placed and styled.
    enum Item {
        ItemBackground = 0,  ///< the widget itself
        ItemTitle = 1,       ///< the title
        ItemValue = 2,       ///< the used amount
        ItemBar = 3          ///< the bar
    };

    /// An empty bar, with title and amount in 12 points bold.
    explicit WidgetProgressBar(QWidget *parent);

    /// Places \a item at (\a x, \a y) with the size \a w by \a h, in pixels: the widget in its parent, the other
    /// parts in the widget. An unknown item is rejected with a log line.
    void setItemGeometry(WidgetProgressBar::Item item, int x, int y, int w, int h);

    /// Gives \a item a default font of \a pointSize points, bold whatever \a bold says. The font of ItemValue is that
    /// of the bar as well. Any other item than this and ItemTitle is rejected with a log line.
    void setItemFont(WidgetProgressBar::Item item, int pointSize, bool bold);

    /// Replaces the style sheet of \a item. The colours of the bar are in the sheet of ItemBackground at first, and
    /// are gone when that is replaced. An unknown item is rejected with a log line.
    void setItemStyle(WidgetProgressBar::Item item, QString style);

    /// Shows \a text as the title. A text wider than the title is cut off at its edge.
    void setItemTitle(QString text);

    /// The decimal text of \a value with a comma before each three characters from the right, the sign counted as one
    /// ("1,234,567", but "-,123"), and a space at the end with \a trailingSpace.
    QString calcIntToString(int value, bool trailingSpace);

    /// Shows \a use as the used amount and \a max as the capacity. The bar is filled to \a use of \a max; a \a use
    /// outside 0 to \a max fills it to \a use / \a max, rounded toward zero, or leaves it as it is if that is outside
    /// as well. A bar whose capacity is 0 has the look that the toolkit gives to a task of unknown length.
    void setItemUseMaxValue(int use, int max);

Q_SIGNALS:
    /// setItemUseMaxValue() was called with \a value as the used amount. The text of the amount follows.
    void valueChanged(int value);

private:
    QProgressBar *m_bar;
    QLabel *m_titleLabel;
    QLabel *m_valueLabel;

    QWidget *findPart(WidgetProgressBar::Item item, const char *function, int line);
};

#endif
