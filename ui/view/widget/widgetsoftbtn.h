#ifndef WIDGETSOFTBTN_H
#define WIDGETSOFTBTN_H

#include "widget.h"

#include <QString>

class QLabel;

/// The label of a soft key: a grey face with a bold name in its middle and, on an annotated button, a small extra
/// label in the top left corner, for instance the number of the key.
///
/// The button takes no keys and no focus; the screen that owns it sets its name and looks.
class WIDGET_EXPORT WidgetSoftBtn : public Widget
{
    Q_OBJECT

public:
    /// The parts that can be placed and styled.
    enum Item {
        ItemBackground = 0,  ///< the button itself
        ItemAnnotation = 1,  ///< the extra label; only an annotated button has it
        ItemName = 2         ///< the name
    };

    /// A button, with the extra label if \a annotated. The name is white, in 14 points.
    WidgetSoftBtn(bool annotated, QWidget *parent, SoundManager *soundManager);

    /// Places \a item at (\a x, \a y) with the size \a w by \a h, in pixels: the button in its parent, the other
    /// parts in the button. A place of the name lasts until the button is shown or resized the next time. An unknown
    /// item, or the annotation of a button without one, is rejected with a log line.
    void setItemGeometry(Item item, int x, int y, int w, int h);

    /// Replaces the style sheet of \a item. Rejected as setItemGeometry() is.
    void setItemStyle(Item item, QString styleSheet);

    /// Gives the name a default font of \a pointSize points, bold whatever \a bold says, and replaces its style sheet.
    /// Any other item than ItemName is rejected with a log line.
    void setFontStyle(Item item, int pointSize, bool bold, QString styleSheet);

    /// Shows \a name. A name wider than the button is cut off at its edges.
    void setBtnName(QString name);

protected:
    virtual void showEvent(QShowEvent *event);
    virtual void resizeEvent(QResizeEvent *event);

private:
    bool m_annotated;
    QLabel *m_nameLabel;
    QLabel *m_annotationLabel;  // null if not annotated

    QWidget *findPart(Item item, const char *function, int line);
    void stretchName();
};

#endif
