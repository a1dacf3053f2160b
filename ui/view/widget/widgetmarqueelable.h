#ifndef WIDGETMARQUEELABLE_H
#define WIDGETMARQUEELABLE_H

#include "widgetexport.h"

#include <QLabel>

/// A label whose text circulates: each timer event turns it left by one character, and what leaves at the left comes
/// back at the right. "ABCDE" becomes "BCDEA", "CDEAB" and so on.
///
/// The owner sets the three members and starts and kills a timer on the label (QObject::startTimer()); every timer of
/// the label turns the text, whatever its id. WidgetListItem does so for the title of the row that has the focus.
/// In everything else it is a QLabel.
class WIDGET_EXPORT WidgetMarqueeLable : public QLabel
{
    Q_OBJECT

public:
    QString m_marqueeText;  ///< the text that circulates; the label never changes it
    int m_timerId;          ///< the owner's note of its timer; the label neither reads nor writes it
    int m_offset;           ///< how many characters the text is turned at present; 0 is not turned

    explicit WidgetMarqueeLable(QWidget *parent);
    virtual ~WidgetMarqueeLable();

protected:
    /// Turns the text by one more character. An empty text is shown as such, and the offset counts up
    /// to INT_MAX.
    virtual void timerEvent(QTimerEvent *event);
};

#endif
