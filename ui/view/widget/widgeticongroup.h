#ifndef WIDGETICONGROUP_H
#define WIDGETICONGROUP_H

#include "widget.h"

#include <QString>

class QLabel;

/// A row of three small icons with a separator between neighbours, for instance in a title bar.
///
/// The icons are 20 by 20 pixels and the separators 11 by 11; the row covers 122 by 22 pixels. Each element is hidden
/// until it is given a style sheet, usually one that names a picture. For style sheets and look-ups the group's
/// object name is "WidgetIconGroups", with an s at the end. It takes no keys.
class WIDGET_EXPORT WidgetIconGroup : public Widget
{
    Q_OBJECT

public:
    /// What setVerticalAlignment() does to all five elements.
    enum VerticalAlignment {
        Top = 0,     ///< moves them up by 2 pixels from where they are
        Center = 1,  ///< puts them back to their own places
        Bottom = 2   ///< moves them down by 2 pixels from where they are
    };

    WidgetIconGroup(QWidget *parent, SoundManager *sound);

    /// Dresses icon \a index (0 to 2, left to right) in \a style and shows it. Any other index is ignored with a log
    /// line.
    void setIcon(int index, QString style);

    /// Dresses the separator after icon \a index (0 or 1) in \a style and shows it. Any other index is ignored with a
    /// log line.
    void setSeperator(int index, QString style);

    /// Moves the row: Top twice raises it by 4 pixels, Top and then Bottom leaves it where it was. Any unknown value
    /// is taken for Center.
    void setVerticalAlignment(WidgetIconGroup::VerticalAlignment alignment);

private:
    enum { IconCount = 3, SeperatorCount = 2 };

    QLabel *m_icons[IconCount];
    QLabel *m_seperators[SeperatorCount];

    void placeAll();
    void moveAll(int dy);
};

#endif
