#include "screens.h"

Screen infoScreen();
Screen settingsScreen();
Screen soundScreen();

const std::vector<Screen> &allScreens()
{
    static const std::vector<Screen> screens = {
        settingsScreen(),
        soundScreen(),
        infoScreen(),
    };
    return screens;
}

const Screen *findScreen(const QString &name)
{
    for (const Screen &screen : allScreens()) {
        if (name == QLatin1String(screen.name))
            return &screen;
    }
    return nullptr;
}
