#ifndef WIDGETKEYPADBOTTOM_H
#define WIDGETKEYPADBOTTOM_H

#include "widget.h"

#include <QMap>
#include <QString>

class QKeyEvent;
class QLabel;
class QShowEvent;

/// A bar of four cells, 55 by 23 pixels each, that tell what F1 to F4 do: the bar of a WidgetKeypad, to be used
/// without one.
///
/// F1 to F4 select their cells when they are released. It makes no sound, emits nothing and hands every key on to its
/// parent. Unlike the cells of a keypad, a cell stays selected: until clearSelection() for the cell selected last, or
/// until the bar is shown again for all of them. (Each selection asks the toolkit for a slot that is not there; its
/// warning about that is harmless.)
class WIDGET_EXPORT WidgetKeypadBottom : public Widget
{
    Q_OBJECT

public:
    enum Item {
        ItemButton1 = 0,  ///< F1; carries a text
        ItemButton2 = 1,  ///< F2; carries a text
        ItemSpace = 2,    ///< F3; its sheet only
        ItemDelete = 3    ///< F4; its sheet only
    };

    enum State {
        StateNormal = 0,   ///< at rest
        StateSelected = 1  ///< after its key
    };

private:
    QLabel *m_itemLabel[4];
    QMap<State, QString> m_itemStyle[4];
    Item m_currentItem;

public:
    explicit WidgetKeypadBottom(QWidget *parent);

    /// Places the bar in its parent. The cells stay where they are in the bar.
    void setBgGeometry(int x, int y, int width, int height);

    /// Sets the text of ItemButton1 or ItemButton2, seen at once and never read as rich text. Other items are
    /// ignored.
    void setItemText(Item item, QString text);

    /// Gives ItemButton1 and ItemButton2 their first font again: 14 points, bold.
    void setItemFont();

    /// Shows or hides a cell; the others stay where they are. Values that are no item are ignored.
    void setItemVisible(Item item, bool visible);

    /// Keeps \a style as the sheet of \a item in \a state; at first all are empty. Seen when the cell next changes to
    /// that state. A value that is no item or no state is rejected with a log line.
    void setItemStyle(Item item, State state, QString style);

    /// Dresses the cell of \a item as selected. Values that are no item mean the first cell.
    void handleSelection(Item item);

    /// Dresses the cell selected last as at rest.
    void clearSelection();

protected:
    virtual void showEvent(QShowEvent *event);
    virtual void keyReleaseEvent(QKeyEvent *event);
};

#endif
