#ifndef KEYPADCELLS_H
#define KEYPADCELLS_H

// The four cells for F1 to F4, as both keypad classes show them: in the keypad's own bar and in the bar that stands
// alone. Not part of the interface.

#include "widgetdetails.h"

#include <QLabel>
#include <QMap>

const int KeypadCellCount = 4;
const int KeypadCellStateCount = 2;

/// Creates the cells in \a parent, side by side from its left edge, and stores them in \a cells.
void createKeypadCells(QLabel *cells[], QWidget *parent);

/// Gives the two cells that carry a text their font.
void setKeypadCellFont(QLabel *const cells[]);

/// Sets the text of cell \a item, if that carries one.
void setKeypadCellText(QLabel *const cells[], int item, const QString &text);

/// Shows or hides cell \a item; another \a item is ignored.
void setKeypadCellVisible(QLabel *const cells[], int item, bool visible);

/// The cell that \a item stands for: the first one if it is none of the four.
int keypadCell(int item);

/// Keeps \a sheet for \a item in \a state, 0 at rest or 1 selected; another \a item or \a state is rejected with a log
/// line.
template <typename State>
void keepKeypadCellSheet(QMap<State, QString> sheets[], int item, State state, const QString &sheet,
                         const char *sourcePath)
{
    if (!rejectsIndex(sourcePath, "setItemStyle", item, KeypadCellCount)
        && !rejectsIndex(sourcePath, "setItemStyle", state, KeypadCellStateCount))
        sheets[item][state] = sheet;
}

/// Dresses the cell of \a item for \a state. Returns its sheet, which is empty where none was kept.
template <typename State>
QString dressKeypadCell(QLabel *const cells[], QMap<State, QString> sheets[], int item, State state)
{
    const int cell = keypadCell(item);
    const QString sheet = sheets[cell][state];
    applyStyleSheet(cells[cell], sheet);
    return sheet;
}

#endif
