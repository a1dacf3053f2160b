#ifndef WIDGETBOTTOMGUIDE_H
#define WIDGETBOTTOMGUIDE_H

#include "widget.h"

class QLabel;

/// The page guide at the bottom of a screen with pages: the current page in white and "/" with the number of pages in
/// grey, meeting in the middle of the widget.
///
/// Numbers are shown at once, plainly and with their sign, in the digits 0 to 9. They are placed for the size of the
/// guide whenever it is shown, each in a tenth of its width: a new size counts from the next show on. The guide takes
/// no keys.
class WIDGET_EXPORT WidgetBottomGuide : public Widget
{
    Q_OBJECT

public:
    /// A guide without numbers.
    WidgetBottomGuide(QWidget *parent, SoundManager *sound);

    /// Shows \a page as the current page.
    void setCurPageNo(int page);

    /// Shows "/" and \a count as the number of pages.
    void setTotPageNo(int count);

protected:
    virtual void showEvent(QShowEvent *event);

private:
    QLabel *m_curPageLabel;
    QLabel *m_totPageLabel;
};

#endif
