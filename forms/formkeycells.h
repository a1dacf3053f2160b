#ifndef FORMKEYCELLS_H
#define FORMKEYCELLS_H

#include "formlook.h"

/// Dresses the cells of F1 to F4 of \a bar, a WidgetKeypad or a WidgetKeypadBottom: dark at rest, warm when selected, with
/// the default pictures for space and delete.
template <typename Bar>
void dressKeyCells(Bar *bar)
{
    const char *const pictures[][2] = {
        {0, 0},
        {0, 0},
        {"key_space_nor", "key_space_focus"},
        {"key_delete_nor", "key_delete_focus"},
    };
    const char *const colors[] = {
        "background-color: #6e6464; color: #f8f7f6; border: 1px solid #3c3738; ",
        "background-color: #f7ce86; color: #1f1618; border: 1px solid #3c3738; ",
    };
    for (int item = 0; item < 4; ++item) {
        for (int state = 0; state < 2; ++state) {
            QString sheet = QLatin1String(colors[state]);
            if (pictures[item][state])
                sheet += FormLook::picture(pictures[item][state]);
            bar->setItemStyle(typename Bar::Item(item), typename Bar::State(state), sheet);
        }
    }
}

#endif
