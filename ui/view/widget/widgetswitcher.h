#ifndef WIDGETSWITCHER_H
#define WIDGETSWITCHER_H

#include "widget.h"

#include <QString>

class QGridLayout;
class QLabel;

/// A carousel of six entries for a main menu: the picture of the selected entry in the middle between those of its
/// neighbours, its name below, and at the bottom six page dots of which one is lit.
///
/// The left and right keys turn the carousel around its ends and click; OK clicks and reports the selected entry.
/// Keys act when they are released. Entries are numbered from 0 to 5; an index outside is ignored with a log line.
///
/// Pictures are style sheets, and sheets and names are only stored: they are seen at the next selectItem(), which
/// every turn and every show comes down to. At first the dots are laid out automatically in the middle of the
/// switcher's width; from the time the application places them itself they stay where they are put.
///
/// The labels stand in a layout. A place that setItemGeometry() gives one of them lasts until the layout acts again,
/// for instance at the next resize or new name.
///
/// The application must have the picture of an unlit dot in its resources: :/resource/images_l2/page_off.png. Its size
/// is the size of the dots. With dots 6 pixels wide the lit dot stands exactly where the unlit one of its entry is.
class WIDGET_EXPORT WidgetSwitcher : public Widget
{
    Q_OBJECT

public:
    /// A switcher on entry 0, with empty pictures and names. OK reports every entry.
    WidgetSwitcher(QWidget *parent, SoundManager *sound);

    /// Stores what \a item looks like:
    /// - 0: the switcher itself, at once: its sheet becomes \a style, or \a altStyle where \a style is empty; nothing
    ///   happens where both are;
    /// - 1 or 2: \a style is the sheet of entry \a index at either side;
    /// - 3: \a style is the sheet of entry \a index in the middle;
    /// - 4: \a style is the name of entry \a index, the text itself;
    /// - 5 or 6: \a style is the sheet of the unlit dots or of the lit one.
    /// \a altStyle matters to item 0 only and \a index to items 1 to 4 only. Any other item is ignored.
    void setItemStyle(int item, QString style, QString altStyle, int index);

    /// Gives the name (\a item 4) a default font of \a pointSize points, bold whatever \a bold says, and replaces its
    /// style sheet. Any other item is ignored.
    void setFontStyle(int item, int pointSize, bool bold, QString style);

    /// Places \a item at (\a x, \a y) with the size \a w by \a h, in pixels:
    /// - 0: the switcher, as setBgGeometry() does;
    /// - 1, 2, 3: the left, right and middle picture;
    /// - 4: the name;
    /// - 5: the first unlit dot, and the others at steps of 10 pixels to its right;
    /// - 6: the lit dot.
    /// Either of the last two ends the automatic layout and is where the next selectItem() starts to count from for
    /// the lit dot, which goes (\a w + 4) pixels to the right for each entry. Any other item is ignored.
    void setItemGeometry(int item, int x, int y, int w, int h);

    /// Places the switcher at (\a x, \a y) in its parent with the size \a w by \a h, in pixels, and its dots by
    /// setAutoPageGeometry().
    void setBgGeometry(int x, int y, int w, int h);

    /// Selects entry \a index and brings everything up to date. Silent; nothing is emitted.
    void selectItem(int index);

    /// Whether OK reports entry \a index. It can be selected and clicks in any case.
    void makeSelectable(int index, bool selectable);

    /// Goes back to the dark grey ground (#474242), the upper left corner of the parent and automatic dots. The size
    /// stays.
    void initDisplay();

    /// Lays out the dots for the width of the switcher, if that is automatic. The lit dot is in the first place then,
    /// until the next selectItem(). A switcher that is resized by anything but the functions here needs this call.
    void setAutoPageGeometry();

Q_SIGNALS:
    /// OK was released on entry \a index. The click came before. A slot may delete the switcher.
    void sendMainItem(int index);

protected:
    virtual void keyReleaseEvent(QKeyEvent *event);
    virtual void showEvent(QShowEvent *event);

private:
    enum { EntryCount = 6 };

    QGridLayout *m_layout;
    QLabel *m_centreLabel;
    QLabel *m_leftLabel;
    QLabel *m_rightLabel;
    QLabel *m_nameLabel;
    QWidget *m_pageArea;
    QLabel *m_pageOnLabel;
    QLabel *m_pageOffLabels[EntryCount];
    QString m_centreStyles[EntryCount];
    QString m_sideStyles[EntryCount];
    QString m_names[EntryCount];
    QString m_pageOffStyle;
    QString m_pageOnStyle;
    int m_currentIndex;
    int m_pageX;
    int m_pageY;
    int m_pageW;
    int m_pageH;
    bool m_autoPage;
    bool m_selectable[EntryCount];

    void setPageGeometry(int x, int y, int w, int h);
    void placePageOffLabels();
    void placePageOnLabel(int index);
    void dressPages(int index);
    void turnTo(int index);
    void reportSelection();
};

#endif
