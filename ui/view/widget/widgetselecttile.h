#ifndef WIDGETSELECTTILE_H
#define WIDGETSELECTTILE_H

#include "widget.h"

#include <QString>

class QLabel;

/// A tile of a choice: its content in large bold light text on a transparent ground, in the middle if it fits on one
/// line, otherwise wrapped at words from the top left, 10 pixels below the edge.
///
/// The content is laid out when it is set and whenever the tile is shown; a new size counts from the next show on. It
/// keeps the tile's distance from its parent's corner also from the tile's own corner, so give the tile a parent of
/// its own to stand at (0, 0) in. The tile takes no keys.
class WIDGET_EXPORT WidgetSelectTile : public Widget
{
    Q_OBJECT

public:
    WidgetSelectTile(QWidget *parent, SoundManager *sound);

    /// Shows \a content, which is never read as rich text.
    void setContent(QString content);

protected:
    virtual void showEvent(QShowEvent *event);

private:
    QLabel *m_contentLabel;
    QString m_content;

    void fitContent();
};

#endif
