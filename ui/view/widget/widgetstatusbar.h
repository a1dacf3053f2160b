#ifndef WIDGETSTATUSBAR_H
#define WIDGETSTATUSBAR_H

#include "widget.h"

#include <QString>

class QHBoxLayout;
class QLabel;

/// A strip of four status icons at the right end of its area, each with three states.
///
/// The application registers one style sheet per icon and state, usually one that names a picture, and connects its
/// own status signals to the showItem slots. A sheet that is registered for the state in force is seen at the next
/// show. A state that does not exist looks like one without a sheet.
class WIDGET_EXPORT WidgetStatusBar : public Widget
{
    Q_OBJECT

public:
    WidgetStatusBar(QWidget *parent, SoundManager *soundManager);

    /// Makes \a styleSheet the sheet of icon \a item (0 to 3, left to right) in state \a status (0 to 2). Nothing is
    /// redrawn. An \a item or a \a status outside its range is ignored.
    void setStatusUrl(int item, int status, QString styleSheet);

    /// Places the bar at (\a x, \a y) in its parent with the size \a w by \a h, and pushes the icons to its right end:
    /// they share 4 * \a iconWidth + 4 pixels, and 6 more are left beside them. Where \a w is too small for that the
    /// toolkit's own margin is at the left.
    void setBgGeometry(int x, int y, int w, int h, int iconWidth);

public Q_SLOTS:
    /// Puts an icon into state \a status (0 to 2; all start in 0) and shows it so at once.
    void showItem0(int status);
    void showItem1(int status);
    void showItem2(int status);
    void showItem3(int status);

protected:
    virtual void showEvent(QShowEvent *event);

private:
    enum { IconCount = 4, StatusCount = 3 };

    QHBoxLayout *m_layout;
    QLabel *m_iconLabel[IconCount];
    QString m_statusUrl[IconCount][StatusCount];
    int m_status[IconCount];

    void setStatus(int item, int status);
    void dressIcon(int item);
};

#endif
