#ifndef BENCHMARKS_SCREENS_H
#define BENCHMARKS_SCREENS_H

#include <functional>

class ListModel;
class QWidget;

/// The screens that are measured, each in two makes that look and work the same: of the library's widgets, and of the
/// toolkit's own, as somebody builds it who knows the toolkit and has this one screen to build.
///
/// All of them take the keys of a telephone: 8 and 2 for down and up, 6 and 4 for right and left. They are not shown.
enum class Make { Library, Plain };

const int ScreenWidth = 220;
const int ScreenHeight = 176;
const int ValueCount = 7;

/// Call the one before and the other after the QApplication is made: pictures and costs are then the same on any machine
/// that has the same toolkit.
void setUpEnvironment();
void setUpApplication();

/// A settings list under a title with an icon: rows with a title, seven values, and both arrows.
QWidget *newList(Make make, int rows, QWidget *parent);

/// The same over a model, which both makes have; one of its own, or \a model.
QWidget *newListView(Make make, int rows, QWidget *parent);
QWidget *newListView(Make make, ListModel *model, QWidget *parent);

/// A telephone keypad for small letters. It takes the focus by itself when it is shown.
QWidget *newKeypad(Make make, QWidget *parent);

/// A carousel of six entries.
QWidget *newSwitcher(Make make, QWidget *parent);

/// A clock of 12 hours with seconds.
struct Clock
{
    QWidget *widget;
    std::function<void(int hour, int minute, int second)> showTime;
};
Clock newClock(Make make, QWidget *parent);

#endif
