#include "screen.h"

const Screen *findScreen(const Screens &screens, const QString &name)
{
    for (const Screen &screen : screens) {
        if (name == QLatin1String(screen.name))
            return &screen;
    }
    return nullptr;
}
