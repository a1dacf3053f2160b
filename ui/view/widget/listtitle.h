#ifndef LISTTITLE_H
#define LISTTITLE_H

#include <QFont>
#include <QPixmap>
#include <QString>
#include <QWidget>

class QLabel;

/// The title bar of a WidgetListView. It looks as a WidgetMenuTitle does, but only what an application gives a sheet is a
/// label: dressing three labels takes longer than all else that building such a screen does.
class ListTitle : public QWidget
{
public:
    explicit ListTitle(QWidget *list);

    void setTitle(const QString &title);

    /// Gives the title its font in a list, and puts icon and title to their places for the writing direction now in force.
    void setDefaultFont();

    void addIconStyle(const QString &style);
    void addGuide(const QString &style, const QRect &rect);

protected:
    virtual void paintEvent(QPaintEvent *event);

private:
    QString m_iconSheet;
    QPixmap m_iconPicture;  // where the sheet names no more than that
    QLabel *m_icon;         // where it does; otherwise 0
    QLabel *m_guide;        // 0 until there is one
    QString m_title;
    QFont m_font;
    int m_indent;
    bool m_mirrored;
};

#endif
