#ifndef KEYCELLS_H
#define KEYCELLS_H

#include <QString>

/// The look of a cell for F1 to F4, at rest or lit. Of the picture "key_space", say, key_space_nor.png is shown at rest
/// and key_space_focus.png while lit; an empty \a picture shows none.
QString keyCellSheet(const QString &picture, bool lit);

/// Dresses the four cells of a WidgetKeypad or a WidgetKeypadBottom. The last two show pictures.
template <typename Bar>
void dressKeyCells(Bar *bar, const QString &thirdPicture, const QString &fourthPicture)
{
    const QString pictures[] = {QString(), QString(), thirdPicture, fourthPicture};
    for (int cell = 0; cell < 4; ++cell) {
        const typename Bar::Item item = typename Bar::Item(cell);
        bar->setItemStyle(item, Bar::StateNormal, keyCellSheet(pictures[cell], false));
        bar->setItemStyle(item, Bar::StateSelected, keyCellSheet(pictures[cell], true));
    }
}

#endif
