#ifndef PARTS_H
#define PARTS_H

#include <QString>

#include <vector>

class QFont;
class QLabel;
class QRect;
class QWidget;
class Widget;
class WidgetSimpleTitle;

// What the screens that are not lists have in common.

/// The style sheet that shows the picture \a name of :/resource/images_l2/ ("icon_radio" for icon_radio.png).
QString pictureSheet(const QString &name);

/// \a place, or its mirror image in a parent \a width pixels wide while texts are written from right to left.
QRect placeForWriting(const QRect &place, int width);

/// Where the thing \a i of \a count stands, counted from the left: they stand in the direction of writing. Or which thing
/// stands at the place \a i.
int placeForWriting(int i, int count);

/// Whether \a key of \a widget goes back, or forward: left and right, the other way round where texts are written from
/// right to left.
bool isBackKey(Widget *widget, int key);
bool isForwardKey(Widget *widget, int key);

/// Adds a title bar to \a screen: \a title, the picture \a icon, and at the end the picture \a guide to what the keys
/// do, or none.
WidgetSimpleTitle *addTitleBar(QWidget *screen, const QString &title, const QString &icon,
                               const QString &guide = QString());

/// Places the title within \a bar, mirrored where texts are written from right to left.
void placeTitle(WidgetSimpleTitle *bar, const QRect &place);

/// Adds a label that shows the picture \a name.
QLabel *addPicture(QWidget *parent, const QRect &place, const QString &name);

/// Adds a label for text in \a color.
QLabel *addLabel(QWidget *parent, const QRect &place, int pointSize, bool bold, const QString &color);

/// A line of a longer text.
struct TextLine
{
    int start;  ///< in the longer text
    QString text;
};

/// The lines that \a text makes in \a font within \a width. The toolkit breaks lines as well, but leaves the blanks there:
/// from right to left, these move a line away from the edge where it begins.
std::vector<TextLine> linesOf(const QString &text, const QFont &font, int width);

/// The same in one text.
QString brokenIntoLines(const QString &text, const QFont &font, int width);

/// Shows \a text in \a label, with an ellipsis if it is too long.
void showElided(QLabel *label, const QString &text);

#endif
