#ifndef WIDGETTAMARK_H
#define WIDGETTAMARK_H

#include "widget.h"

#include <QFont>
#include <QString>

class QLabel;

/// The banner of a traffic announcement: one line of large bold white text in the middle of a picture, with an
/// ellipsis where it is too long.
///
/// The banner is 220 pixels wide and as high as the widget when it is shown; a new height counts from the next show
/// on. The application must have the picture in its resources: :/resource/images_l2/tna_bg.png. The mark takes no
/// keys and no focus.
class WIDGET_EXPORT WidgetTAMark : public Widget
{
    Q_OBJECT

public:
    WidgetTAMark(QWidget *parent, SoundManager *sound);

    /// Shows \a text, cut with an ellipsis if it is wider than the banner. It is never read as rich text.
    void updateTAText(QString text);

    /// Writes in \a font, but always in 20 points and bold. A text that is shown already is not cut anew; call
    /// updateTAText() again.
    void setTAFont(QFont font);

protected:
    virtual void showEvent(QShowEvent *event);

private:
    QFont m_taFont;
    QLabel *m_taLabel;

    void placeBanner();
};

#endif
