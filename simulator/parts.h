#ifndef PARTS_H
#define PARTS_H

#include <QString>

class QLabel;
class QRect;
class QWidget;
class WidgetSimpleTitle;

// What the screens that are not lists have in common.

/// The style sheet that shows the picture \a name of :/resource/images_l2/ ("icon_radio" for icon_radio.png).
QString pictureSheet(const QString &name);

/// \a place, or its mirror image in a parent \a width pixels wide while texts are written from right to left.
QRect placeForWriting(const QRect &place, int width);

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

/// Shows \a text in \a label, with an ellipsis if it is too long.
void showElided(QLabel *label, const QString &text);

#endif
