#ifndef ROWS_H
#define ROWS_H

#include <QString>

class WidgetList;
class WidgetListItem;
class WidgetListView;

// What the list screens have in common.

/// Gives \a list its title bar: \a title, and the picture \a icon of :/resource/images_l2/. The rest of the list begins on
/// the side from which texts are written, as do its rows.
void setTitleBar(WidgetList *list, const QString &title, const QString &icon);
void setTitleBar(WidgetListView *list, const QString &title, const QString &icon);

/// Adds the picture that tells that OK saves to the title bar of \a list.
void addSaveGuide(WidgetList *list);

/// Adds a row to \a list. A \a digit of 0 to 9 becomes its shortcut and stands on its badge. The badge moves the title,
/// but not a value below it: digits are for rows of one line.
WidgetListItem *addRow(WidgetList *list, const QString &title, int digit = -1);

/// Adds a row that shows \a value on the line of its title.
WidgetListItem *addOneLineRow(WidgetList *list, const QString &title, const QString &value);

#endif
