#include "keypadcells.h"

namespace {

const int TextCellCount = 2;  // the first ones; the others are pictures, made by their sheets

const int CellWidth = 55;
const int CellHeight = 23;
const int CellPointSize = 14;

}

void createKeypadCells(QLabel *cells[], QWidget *parent)
{
    for (int item = 0; item < KeypadCellCount; ++item) {
        cells[item] = new QLabel(parent);
        cells[item]->setTextFormat(Qt::PlainText);
        cells[item]->setAlignment(Qt::AlignHCenter | Qt::AlignVCenter);
        cells[item]->setGeometry(item * CellWidth, 0, CellWidth, CellHeight);
    }
    setKeypadCellFont(cells);
}

void setKeypadCellFont(QLabel *const cells[])
{
    for (int item = 0; item < TextCellCount; ++item)
        cells[item]->setFont(defaultFont(CellPointSize, true));
}

void setKeypadCellText(QLabel *const cells[], int item, const QString &text)
{
    if (item >= 0 && item < TextCellCount)
        cells[item]->setText(text);
}

void setKeypadCellVisible(QLabel *const cells[], int item, bool visible)
{
    if (item >= 0 && item < KeypadCellCount)
        cells[item]->setVisible(visible);
}

int keypadCell(int item)
{
    return item > 0 && item < KeypadCellCount ? item : 0;
}
